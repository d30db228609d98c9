// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/DesktopEntry.h"

#include "platform/linux/KeyFile.h"

#include <QLocale>

namespace nubo::platform {

namespace {

bool isTrue(const QString& value)
{
    return value == QLatin1String("true");
}

// Name[es_AR], then Name[es], then Name.
QString localized(const KeyFile::Group& group, const QString& key)
{
    const QString locale = QLocale().name();
    for (const QString& suffix : {locale, locale.section(QLatin1Char('_'), 0, 0)}) {
        const QString value = group.value(key + QLatin1Char('[') + suffix + QLatin1Char(']'));
        if (!value.isEmpty())
            return value;
    }
    return group.value(key);
}

} // namespace

std::optional<DesktopEntry> DesktopEntry::read(const QString& path, const QString& id)
{
    const KeyFile file = KeyFile::read(path);
    const KeyFile::Group group = file.group(QStringLiteral("Desktop Entry"));
    if (group.value(QStringLiteral("Type")) != QLatin1String("Application"))
        return std::nullopt;
    DesktopEntry entry;
    entry.id = id;
    entry.path = path;
    entry.exec = KeyFile::unescape(group.value(QStringLiteral("Exec")));
    if (entry.exec.isEmpty())
        return std::nullopt;
    entry.name = localized(group, QStringLiteral("Name"));
    entry.icon = group.value(QStringLiteral("Icon"));
    entry.mimeTypes = KeyFile::list(group.value(QStringLiteral("MimeType")));
    entry.terminal = isTrue(group.value(QStringLiteral("Terminal")));
    entry.noDisplay = isTrue(group.value(QStringLiteral("NoDisplay")));
    entry.hidden = isTrue(group.value(QStringLiteral("Hidden")));
    return entry;
}

} // namespace nubo::platform
