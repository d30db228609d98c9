#pragma once

#include "platform/DriveType.h"

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

} // namespace nubo::platform
