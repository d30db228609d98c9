#include "platform/linux/LinuxDirectoryReader.h"

#include <QFile>

#include <dirent.h>
#include <sys/stat.h>

namespace nubo::platform {

namespace {

QByteArray childPath(const QByteArray& folder, const char* name)
{
    QByteArray path = folder;
    if (!path.endsWith('/'))
        path.append('/');
    return path.append(name);
}

// Folders are looked up once more to learn their device, so a walk can stay on one file
// system; "." and ".." are never walked into, so they are not looked up.
DirEntry describe(const QByteArray& folder, dev_t folderDevice, const dirent* entry)
{
    DirEntry result;
    const QByteArray name(entry->d_name);
    result.name = QFile::decodeName(name);
    result.undecodable = !QUtf8StringView(name).isValidUtf8();
    if (entry->d_type != DT_DIR && entry->d_type != DT_UNKNOWN)
        return result;
    if (name == "." || name == "..") {
        result.isFolder = entry->d_type == DT_DIR;
        return result;
    }
    // Some file systems do not fill d_type; lstat keeps links to folders out as well.
    struct stat info
    {
    };
    if (::lstat(childPath(folder, entry->d_name).constData(), &info) != 0)
        return result;
    result.isFolder = S_ISDIR(info.st_mode);
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
        entries.append(describe(encoded, device, entry));
    ::closedir(dir);
    return entries;
}

} // namespace nubo::platform
