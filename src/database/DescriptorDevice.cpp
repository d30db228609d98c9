// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/DescriptorDevice.h"

#include "database/FileCause.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo::database {

DescriptorDevice::DescriptorDevice(int fd) : m_fd(fd)
{
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

void DescriptorDevice::failWith(int error)
{
    m_errno = error;
    setErrorString(fileErrorCause(error));
}

bool DescriptorDevice::seek(qint64 pos)
{
    if (::lseek(m_fd, off_t(pos), SEEK_SET) < 0) {
        failWith(errno);
        return false;
    }
    return QIODevice::seek(pos);
}

qint64 DescriptorDevice::size() const
{
    struct stat st
    {
    };
    return ::fstat(m_fd, &st) == 0 ? qint64(st.st_size) : 0;
}

qint64 DescriptorDevice::readData(char*, qint64)
{
    return -1;
}

qint64 DescriptorDevice::writeData(const char* data, qint64 size)
{
    qint64 done = 0;
    while (done < size) {
        const ssize_t n = ::write(m_fd, data + done, size_t(size - done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            // A write that takes nothing on a regular file means no room is left.
            failWith(n < 0 ? errno : ENOSPC);
            return -1;
        }
        done += n;
    }
    return done;
}

} // namespace nubo::database
