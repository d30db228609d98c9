// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::platform {

// The door of an optical drive, reached through its device node. Every failure is silent.
class IOpticalTray
{
public:
    virtual ~IOpticalTray() = default;

    // A device id for the door commands, or -1 when the device cannot be opened.
    [[nodiscard]] virtual int open(const QString& device) = 0;
    virtual void close(int id) = 0;
    // Result code of the door command: 0 when it succeeded.
    virtual int setDoor(int id, bool open) = 0;
    virtual bool mediumPresent(const QString& device) = 0;
    // Mounts the disc in the drive the way the desktop does, and gives its mount point; empty
    // when the disc holds no file system to mount (an audio CD) or the mount failed.
    virtual QString mountMedium(const QString& device) = 0;
};

} // namespace nubo::platform
