// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxOpticalTray.h"

#include "platform/MountTable.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace nubo::platform {

int LinuxOpticalTray::open(const QString& device)
{
    if (device.isEmpty())
        return -1;
    const int fd = ::open(QFile::encodeName(device).constData(), O_RDONLY | O_NONBLOCK);
    return fd >= 0 ? fd : -1;
}

void LinuxOpticalTray::close(int id)
{
    if (id >= 0)
        ::close(id);
}

int LinuxOpticalTray::setDoor(int id, bool open)
{
    if (id < 0)
        return -1;
    return ::ioctl(id, open ? CDROMEJECT : CDROMCLOSETRAY, 0) == 0 ? 0 : -1;
}

bool LinuxOpticalTray::mediumPresent(const QString& device)
{
    const int fd = open(device);
    if (fd < 0)
        return false;
    const bool present = ::ioctl(fd, CDROM_DRIVE_STATUS, CDSL_CURRENT) == CDS_DISC_OK;
    close(fd);
    return present;
}

bool LinuxOpticalTray::audioOnly(const QString& device)
{
    const int fd = open(device);
    if (fd < 0)
        return false;
    const bool audio = ::ioctl(fd, CDROM_DISC_STATUS, 0) == CDS_AUDIO;
    close(fd);
    return audio;
}

QString LinuxOpticalTray::mountMedium(const QString& device)
{
    if (device.isEmpty() || audioOnly(device))
        return {};
    QProcess udisks;
    udisks.start(QStringLiteral("udisksctl"), {QStringLiteral("mount"), QStringLiteral("-b"),
                                               device, QStringLiteral("--no-user-interaction")});
    udisks.waitForFinished(20000);
    // The desktop may have mounted it meanwhile: the mount table decides either way.
    QFile mountinfo(QStringLiteral("/proc/self/mountinfo"));
    if (!mountinfo.open(QIODevice::ReadOnly))
        return {};
    const QString target = QFileInfo(device).canonicalFilePath();
    // The table lives past the loop: its entries are a reference into it.
    const MountTable table = MountTable::parse(mountinfo.readAll());
    for (const MountEntry& entry : table.entries()) {
        if (QFileInfo(entry.device).canonicalFilePath() == target)
            return entry.mountPoint;
    }
    return {};
}

} // namespace nubo::platform
