// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/CdTray.h"

#include "search/DriveList.h"

namespace nubo::search {

QString CdTray::deviceOf(const QString& drive) const
{
    const DriveList list(m_drives);
    const int index = list.indexOf(drive);
    return index < 0 ? QString() : list.entries()[index].device;
}

bool CdTray::mediumPresent(const QString& drive)
{
    const QString device = deviceOf(drive);
    return !device.isEmpty() && m_tray.mediumPresent(device);
}

QString CdTray::mountMedium(const QString& drive)
{
    const QString device = deviceOf(drive);
    return device.isEmpty() ? QString() : m_tray.mountMedium(device);
}

bool CdTray::OpenCdDevice(const QString& drive)
{
    const int id = m_tray.open(deviceOf(drive));
    if (id < 0)
        return false;
    CdDeviceId = id;
    return true;
}

void CdTray::CloseCdDevice()
{
    m_tray.close(CdDeviceId);
    CdDeviceId = -1;
}

void CdTray::setDoor(const QString& drive, bool open)
{
    CdDeviceId = -1;
    if (!OpenCdDevice(drive))
        return;
    DoorResult = m_tray.setDoor(CdDeviceId, open);
    CloseCdDevice();
}

void CdTray::EjectTray(const QString& drive)
{
    setDoor(drive, true);
}

void CdTray::CloseTray(const QString& drive)
{
    setDoor(drive, false);
}

} // namespace nubo::search
