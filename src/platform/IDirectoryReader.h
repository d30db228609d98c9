// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

namespace nubo::platform {

// One name of a folder listing. A symbolic link is never a folder here, whatever it points at.
struct DirEntry
{
    QString name;
    bool isFolder = false;
    // A regular file, as the listing itself says: no look-up is needed to know it is a file.
    bool isFile = false;
    // A folder on another file system than the one listed: a mount point below it.
    bool otherFileSystem = false;
    // The name's bytes are not valid UTF-8: name holds them read as Windows-1252, and
    // nativeName the bytes themselves.
    bool undecodable = false;
    QByteArray nativeName = {};
};

// Lists folders the cheap way: one pass over the directory, no per-entry look-up where the
// directory itself says what an entry is.
class IDirectoryReader
{
public:
    virtual ~IDirectoryReader() = default;

    // Every entry of folder in the file system's own order, "." and ".." included; nothing
    // when the folder cannot be read (missing, no access, not a folder).
    virtual std::optional<QList<DirEntry>> read(const QString& folder) const = 0;
    // The same for a folder named by its bytes, which may not be UTF-8.
    virtual std::optional<QList<DirEntry>> readNative(const QByteArray& folder) const
    {
        return read(QString::fromUtf8(folder));
    }
};

} // namespace nubo::platform
