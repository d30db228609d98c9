// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/DriveInfo.h"

#include <QList>
#include <QString>

namespace nubo::platform {

// Whether the two legacy floppy letters answer; the search walks its tree once per answer.
struct FloppyPresence
{
    bool a = true;
    bool b = false;
};

// The machine's drives: mounted volumes, their prefixes and types.
class IDrives
{
public:
    virtual ~IDrives() = default;

    // Every drive, then every optical drive that has no medium.
    virtual QList<DriveInfo> drives() const = 0;
    // The drive prefix of an absolute path: its volume's mount point without a trailing '/'.
    virtual QString drivePrefixOf(const QString& absolutePath) const = 0;
    // The type of a drive named by its mount point, its prefix, its drive-list text or its
    // device node; NoRootDir for a text that names no drive.
    virtual DriveType driveType(const QString& drive) const = 0;
    virtual FloppyPresence floppyPresence() const = 0;
};

} // namespace nubo::platform
