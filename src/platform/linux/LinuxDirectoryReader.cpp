#include "platform/linux/LinuxDirectoryReader.h"

#include <QFile>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace nubo::platform {

namespace {

// Folders are looked up once more, relative to the open folder, to learn their device, so a
// walk can stay on one file system; "." and ".." are never walked into, so they are not
// looked up. Other entries are looked up only where the listing does not give their type.
DirEntry describe(int folder, dev_t folderDevice, const dirent* entry)
{
    DirEntry result;
    const QByteArrayView name(entry->d_name);
    result.undecodable = !QUtf8StringView(name).isValidUtf8();
    result.name =
        result.undecodable ? QFile::decodeName(name.toByteArray()) : QString::fromUtf8(name);
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
    const QByteArray encoded = QFile::encodeName(folder);
    DIR* dir = ::opendir(encoded.constData());
    if (!dir)
        return std::nullopt;
    struct stat self
    {
    };
    const dev_t device = ::fstat(::dirfd(dir), &self) == 0 ? self.st_dev : dev_t(0);
    QList<DirEntry> entries;
    while (const dirent* entry = ::readdir(dir))
        entries.append(describe(::dirfd(dir), device, entry));
    ::closedir(dir);
    return entries;
}

} // namespace nubo::platform
