// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/XdgDirs.h"

#include <QDir>

namespace nubo::platform {

namespace {

QString absoluteOr(const char* variable, const QString& fallback)
{
    const QString value = qEnvironmentVariable(variable);
    return QDir::isAbsolutePath(value) ? value : fallback;
}

QStringList absoluteListOr(const char* variable, const QStringList& fallback)
{
    QStringList result;
    for (const QString& item : qEnvironmentVariable(variable).split(QLatin1Char(':'))) {
        if (QDir::isAbsolutePath(item))
            result.append(item);
    }
    return result.isEmpty() ? fallback : result;
}

} // namespace

XdgDirs XdgDirs::fromEnvironment()
{
    const QString home = QDir::homePath();
    XdgDirs dirs;
    dirs.configHome = absoluteOr("XDG_CONFIG_HOME", home + QStringLiteral("/.config"));
    dirs.configDirs = absoluteListOr("XDG_CONFIG_DIRS", {QStringLiteral("/etc/xdg")});
    dirs.dataHome = absoluteOr("XDG_DATA_HOME", home + QStringLiteral("/.local/share"));
    dirs.dataDirs = absoluteListOr(
        "XDG_DATA_DIRS", {QStringLiteral("/usr/local/share"), QStringLiteral("/usr/share")});
    for (const QString& desktop :
         qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':'), Qt::SkipEmptyParts))
        dirs.desktops.append(desktop.toLower());
    return dirs;
}

} // namespace nubo::platform
