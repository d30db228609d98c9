// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxDirectoryReader.h"

#include "platform/Windows1252.h"

#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo::platform {

namespace {

// Folders are looked up once more, relative to the open folder, to learn their device, so a
// walk can stay on one file system; "." and ".." are never walked into, so they are not
// looked up. Other entries are looked up only where the listing does not give their type.
DirEntry describe(int folder, dev_t folderDevice, const dirent64* entry)
{
    DirEntry result;
    const QByteArrayView name(entry->d_name);
    result.undecodable = !QUtf8StringView(name).isValidUtf8();
    if (result.undecodable) {
        result.nativeName = name.toByteArray();
        result.name = decodeWindows1252(name);
    } else {
        result.name = QString::fromUtf8(name);
    }
    result.isFile = entry->d_type == DT_REG;
    if (entry->d_type != DT_DIR && entry->d_type != DT_UNKNOWN)
        return result;
    if (name == "." || name == "..") {
        result.isFolder = entry->d_type == DT_DIR;
        return result;
    }
    // Some file systems do not fill d_type; not following links keeps links to folders out.
    struct stat info
    {
    };
    if (::fstatat(folder, entry->d_name, &info, AT_SYMLINK_NOFOLLOW) != 0)
        return result;
    result.isFolder = S_ISDIR(info.st_mode);
    result.isFile = S_ISREG(info.st_mode);
    result.otherFileSystem = result.isFolder && info.st_dev != folderDevice;
    return result;
}

} // namespace

std::optional<QList<DirEntry>> LinuxDirectoryReader::read(const QString& folder) const
{
    return readNative(QFile::encodeName(folder));
}

std::optional<QList<DirEntry>> LinuxDirectoryReader::readNative(const QByteArray& folder) const
{
    // The folder is read with getdents64 straight from its descriptor: opendir would look the
    // folder up a second time for what the one fstat below already tells.
    const int fd = ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return std::nullopt;
    struct stat self
    {
    };
    const dev_t device = ::fstat(fd, &self) == 0 ? self.st_dev : dev_t(0);
    QList<DirEntry> entries;
    alignas(dirent64) char buffer[32768];
    ssize_t got = 0;
    while ((got = ::getdents64(fd, buffer, sizeof buffer)) > 0) {
        for (ssize_t at = 0; at < got;) {
            const auto* entry = reinterpret_cast<const dirent64*>(buffer + at);
            entries.append(describe(fd, device, entry));
            at += entry->d_reclen;
        }
    }
    ::close(fd);
    if (got < 0)
        return std::nullopt;
    return entries;
}

} // namespace nubo::platform
