// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/DesktopEntry.h"
#include "platform/linux/XdgDirs.h"

#include <QMap>

#include <optional>

namespace nubo::platform {

// Finds the desktop's default application for a MIME type the XDG way: the [Default
// Applications] of every mimeapps.list in precedence order, then added associations and the
// installed entries' MimeType lines (mimeinfo.cache too), less removed associations; aliases
// and parent types are tried after the type itself.
class MimeAssociations final
{
public:
    explicit MimeAssociations(XdgDirs dirs);

    // The MIME type of a file by its name and content.
    static QString mimeTypeOf(const QString& path);

    // The application that opens files of the type; nothing for "no associated application".
    std::optional<DesktopEntry> defaultApplication(const QString& mimeType) const;
    // The installed applications a user may choose from, by name.
    QList<DesktopEntry> applications() const;

private:
    // One place associations are read from, in precedence order.
    struct Source
    {
        QString listFile;     // a mimeapps.list, or empty
        QString applications; // a data folder's applications/, whose entries count, or empty
    };

    void loadEntries() const;
    QList<Source> sources() const;
    std::optional<DesktopEntry> lookup(const QString& mimeType) const;
    std::optional<DesktopEntry> installed(const QString& id) const;
    QStringList cachedIds(const QString& applications, const QString& mimeType) const;

    XdgDirs m_dirs;
    mutable bool m_loaded = false;
    mutable QMap<QString, DesktopEntry> m_entries; // by id; the first folder that has it wins
    mutable QMap<QString, QString> m_entryFolder;  // id -> its applications/ folder
};

} // namespace nubo::platform
