// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxInstanceCheck.h"

#include <QByteArray>
#include <QDir>

#include <sys/stat.h>
#include <unistd.h>

namespace nubo::platform {

bool LinuxInstanceCheck::anotherInstanceRunning() const
{
    struct stat self
    {
    };
    if (::stat("/proc/self/exe", &self) != 0)
        return false;
    const uid_t uid = ::getuid();
    const QString ownPid = QString::number(::getpid());
    const QStringList pids = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString& pid : pids) {
        bool numeric = false;
        pid.toLong(&numeric);
        if (!numeric || pid == ownPid)
            continue;
        const QByteArray procDir = QByteArray("/proc/") + pid.toLatin1();
        struct stat owner
        {
        };
        if (::stat(procDir.constData(), &owner) != 0 || owner.st_uid != uid)
            continue;
        struct stat exe
        {
        };
        if (::stat((procDir + "/exe").constData(), &exe) != 0)
            continue;
        if (exe.st_dev == self.st_dev && exe.st_ino == self.st_ino)
            return true;
    }
    return false;
}

} // namespace nubo::platform
