// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IOpticalTray.h"

#include <functional>

namespace nubo::platform {

// The optical door through the cdrom ioctls, on the device opened without blocking; mounts
// through the desktop's disk service.
class LinuxOpticalTray final : public IOpticalTray
{
public:
    // Asks the disk service to mount a device; the mount table then tells where it went.
    using MountRequest = std::function<void(const QString& device)>;

    // The program's tray reads /proc/self/mountinfo and asks udisksctl; tests give a table
    // file and a stand-in for the service.
    explicit LinuxOpticalTray(QString mountInfoPath = QStringLiteral("/proc/self/mountinfo"),
                              MountRequest requestMount = udisksMount);

    int open(const QString& device) override;
    void close(int id) override;
    int setDoor(int id, bool open) override;
    bool mediumPresent(const QString& device) override;
    QString mountMedium(const QString& device) override;

    // Through udisksctl, without asking for a password; waits at most 20 seconds.
    static void udisksMount(const QString& device);

private:
    bool audioOnly(const QString& device);

    QString m_mountInfoPath;
    MountRequest m_requestMount;
};

} // namespace nubo::platform
