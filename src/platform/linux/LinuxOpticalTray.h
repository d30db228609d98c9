// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IOpticalTray.h"

namespace nubo::platform {

// The optical door through the cdrom ioctls, on the device opened without blocking; mounts
// through the desktop's disk service.
class LinuxOpticalTray final : public IOpticalTray
{
public:
    int open(const QString& device) override;
    void close(int id) override;
    int setDoor(int id, bool open) override;
    bool mediumPresent(const QString& device) override;
    // Through udisksctl, the desktop's disk service, without asking for a password.
    QString mountMedium(const QString& device) override;

private:
    bool audioOnly(const QString& device);
};

} // namespace nubo::platform
