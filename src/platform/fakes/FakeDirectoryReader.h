// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDirectoryReader.h"
#include "platform/Windows1252.h"

#include <QHash>

#include <functional>

namespace nubo::platform {

// Folder listings a test writes down, keyed by folder path with its trailing '/'; a folder
// not listed cannot be read. A generator may stand in for very large listings.
class FakeDirectoryReader final : public IDirectoryReader
{
public:
    QHash<QString, QList<DirEntry>> folders;
    QStringList mountPoints; // folders, with their trailing '/', that another volume is on
    std::function<std::optional<QList<DirEntry>>(const QString&)> generator;
    mutable QStringList reads;

    // Adds "." and ".." and the given names; names ending in '/' are folders.
    void addFolder(const QString& folder, const QStringList& names)
    {
        QList<DirEntry> entries{{QStringLiteral("."), true}, {QStringLiteral(".."), true}};
        for (const QString& name : names) {
            const bool folderName = name.endsWith(QLatin1Char('/'));
            entries.append({folderName ? name.chopped(1) : name, folderName});
        }
        folders.insert(folder, entries);
    }

    std::optional<QList<DirEntry>> read(const QString& folder) const override
    {
        reads.append(folder);
        if (generator)
            return generator(folder);
        const auto it = folders.find(folder);
        if (it == folders.end())
            return std::nullopt;
        QList<DirEntry> entries = *it;
        for (DirEntry& entry : entries) {
            entry.otherFileSystem = entry.isFolder && entry.name != QLatin1String(".") &&
                                    entry.name != QLatin1String("..") &&
                                    mountPoints.contains(folder + entry.name + QLatin1Char('/'));
        }
        return entries;
    }
    // Folders whose bytes are not UTF-8 are listed under their Windows-1252 reading.
    std::optional<QList<DirEntry>> readNative(const QByteArray& folder) const override
    {
        return read(QUtf8StringView(folder).isValidUtf8() ? QString::fromUtf8(folder)
                                                          : decodeWindows1252(folder));
    }
};

} // namespace nubo::platform
