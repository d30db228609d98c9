// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace nubo::platform {

// The XDG base folders and desktop names that the association lookup reads.
struct XdgDirs
{
    QString configHome;
    QStringList configDirs;
    QString dataHome;
    QStringList dataDirs;
    QStringList desktops; // XDG_CURRENT_DESKTOP, lower case, for "<desktop>-mimeapps.list"

    // From the environment, with the defaults the base-directory rules give.
    static XdgDirs fromEnvironment();
};

} // namespace nubo::platform
