#include "platform/linux/LinuxDirectoryReader.h"

#include <QFile>

#include <dirent.h>
#include <sys/stat.h>

namespace nubo::platform {

namespace {

bool isFolder(const QByteArray& folder, const dirent* entry)
{
    if (entry->d_type == DT_DIR)
        return true;
    if (entry->d_type != DT_UNKNOWN)
        return false;
    // Some file systems do not fill d_type; lstat keeps links to folders out as well.
    QByteArray path = folder;
    if (!path.endsWith('/'))
        path.append('/');
    path.append(entry->d_name);
    struct stat info
    {
    };
    return ::lstat(path.constData(), &info) == 0 && S_ISDIR(info.st_mode);
}

} // namespace

std::optional<QList<DirEntry>> LinuxDirectoryReader::read(const QString& folder) const
{
    const QByteArray encoded = QFile::encodeName(folder);
    DIR* dir = ::opendir(encoded.constData());
    if (!dir)
        return std::nullopt;
    QList<DirEntry> entries;
    while (const dirent* entry = ::readdir(dir))
        entries.append({QFile::decodeName(entry->d_name), isFolder(encoded, entry)});
    ::closedir(dir);
    return entries;
}

} // namespace nubo::platform
