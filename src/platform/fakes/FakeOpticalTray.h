#pragma once

#include "platform/IOpticalTray.h"

#include <QStringList>

namespace nubo::platform {

// A door that records every command; only the listed devices can be opened.
class FakeOpticalTray final : public IOpticalTray
{
public:
    QStringList openable;
    QStringList withMedium;
    QStringList log; // "open /dev/sr0", "eject 1", "shut 1", "close 1"

    int open(const QString& device) override
    {
        log.append(QStringLiteral("open ") + device);
        return openable.contains(device) ? ++m_lastId : -1;
    }
    void close(int id) override { log.append(QStringLiteral("close %1").arg(id)); }
    int setDoor(int id, bool open) override
    {
        log.append(QStringLiteral("%1 %2").arg(open ? "eject" : "shut").arg(id));
        return 0;
    }
    bool mediumPresent(const QString& device) override { return withMedium.contains(device); }

private:
    int m_lastId = 0;
};

} // namespace nubo::platform
