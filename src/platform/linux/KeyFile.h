// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace nubo::platform {

// The freedesktop key-file form shared by .desktop files, mimeapps.list and mimeinfo.cache:
// [Group] headers, Key=Value lines, '#' comments. Later duplicates of a key are ignored.
class KeyFile final
{
public:
    using Group = QHash<QString, QString>;

    [[nodiscard]] static KeyFile read(const QString& path);
    [[nodiscard]] static KeyFile parse(const QByteArray& bytes);

    Group group(const QString& name) const { return m_groups.value(name); }

    // "a;b;c;" as a list; empty items are dropped and "\;" stays a literal ';'.
    static QStringList list(const QString& value);
    // Resolves the string escapes \s \n \t \r and \\.
    static QString unescape(const QString& value);

private:
    QHash<QString, Group> m_groups;
};

} // namespace nubo::platform
