// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/DriveType.h"

#include <QList>
#include <QString>

namespace nubo::platform {

// One entry of the drive list: a mounted volume, or an optical drive without a medium.
struct DriveInfo
{
    QString mountPoint; // empty for an optical drive without a medium
    QString device;
    QString fsType;
    QString label;
    DriveType type = DriveType::Fixed;
    bool hasMedium = true;

    // The text the drive list shows: the mount point ("/" for the root volume), then for a
    // labelled fixed disk a blank and the label in brackets; the device node when empty.
    QString listText() const
    {
        if (!hasMedium)
            return device;
        if (type == DriveType::Fixed && !label.isEmpty())
            return mountPoint + QStringLiteral(" [") + label + QLatin1Char(']');
        return mountPoint;
    }
};

// The path a drive-list text stands for: a labelled drive's own entry text loses its
// " [label]" and a mounted drive's device node stands for its mount point; any other text
// stays whole, so a folder named "Disco [2]" keeps its name.
inline QString pathOfDriveText(const QList<DriveInfo>& drives, const QString& text)
{
    for (const DriveInfo& drive : drives) {
        if (!drive.hasMedium || drive.mountPoint.isEmpty() || text == drive.mountPoint)
            continue;
        if ((!drive.label.isEmpty() && text == drive.listText()) || text == drive.device)
            return drive.mountPoint;
    }
    return text;
}

} // namespace nubo::platform
