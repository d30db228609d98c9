// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace nubo::platform {

// One installed application as its .desktop file describes it (the [Desktop Entry] group).
struct DesktopEntry
{
    QString id;   // "org.videolan.vlc.desktop": the path below applications/, '/' as '-'
    QString path; // the .desktop file
    QString name; // in the user's language where the file has it
    QString exec;
    QString icon;
    QStringList mimeTypes;
    bool terminal = false;
    bool noDisplay = false;
    bool hidden = false;

    // Reads an application entry; nothing for other types or a file without an Exec line.
    [[nodiscard]] static std::optional<DesktopEntry> read(const QString& path, const QString& id);
};

} // namespace nubo::platform
