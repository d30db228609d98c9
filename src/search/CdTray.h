// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDrives.h"
#include "platform/IOpticalTray.h"

namespace nubo::search {

// Opens and shuts a CD-ROM door: each door command opens the drive's device around one set
// command, so no device stays open between commands. Every failure is silent.
class CdTray final
{
public:
    CdTray(platform::IOpticalTray& tray, const platform::IDrives& drives)
        : m_tray(tray), m_drives(drives)
    {
    }

    bool OpenCdDevice(const QString& drive);
    void CloseCdDevice();
    void EjectTray(const QString& drive);
    void CloseTray(const QString& drive);

    // The device node a drive text stands for; empty when no drive answers to it.
    QString deviceOf(const QString& drive) const;
    bool mediumPresent(const QString& drive);
    // The mount point of the drive's disc, mounting it when needed; empty when it has none.
    QString mountMedium(const QString& drive);

    int CdDeviceId = -1;
    int DoorResult = 0; // result of the last door command, kept and never read

private:
    void setDoor(const QString& drive, bool open);

    platform::IOpticalTray& m_tray;
    const platform::IDrives& m_drives;
};

} // namespace nubo::search
