#include "platform/linux/LinuxOpticalTray.h"

#include <QFile>

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

} // namespace nubo::platform
