// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IOpticalTray.h"

#include <QHash>
#include <QStringList>

#include <functional>

namespace nubo::platform {

// A door that records every command; only the listed devices can be opened.
class FakeOpticalTray final : public IOpticalTray
{
public:
    QStringList openable;
    QStringList withMedium;
    QStringList log;          // "open /dev/sr0", "eject 1", "shut 1", "close 1", "mount /dev/sr0"
    QStringList loadedOnShut; // devices whose disc is in once the door shuts
    // What mounting a device does and gives; by default nothing mounts.
    std::function<QString(const QString&)> onMount;

    int open(const QString& device) override
    {
        log.append(QStringLiteral("open ") + device);
        if (!openable.contains(device))
            return -1;
        m_devices.insert(++m_lastId, device);
        return m_lastId;
    }
    void close(int id) override { log.append(QStringLiteral("close %1").arg(id)); }
    int setDoor(int id, bool open) override
    {
        log.append(QStringLiteral("%1 %2").arg(open ? "eject" : "shut").arg(id));
        const QString device = m_devices.value(id);
        if (open)
            withMedium.removeAll(device);
        else if (loadedOnShut.contains(device))
            withMedium.append(device);
        return 0;
    }
    bool mediumPresent(const QString& device) override { return withMedium.contains(device); }
    QString mountMedium(const QString& device) override
    {
        log.append(QStringLiteral("mount ") + device);
        return onMount ? onMount(device) : QString();
    }

private:
    int m_lastId = 0;
    QHash<int, QString> m_devices;
};

} // namespace nubo::platform
