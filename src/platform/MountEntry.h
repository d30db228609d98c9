// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::platform {

// One mounted volume as the mount table describes it.
struct MountEntry
{
    QString mountPoint; // "/", "/media/cd"
    QString device;     // "/dev/sr0", "tmpfs"
    QString fsType;     // "ext4", "iso9660"
};

} // namespace nubo::platform
