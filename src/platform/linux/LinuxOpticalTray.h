#pragma once

#include "platform/IOpticalTray.h"

namespace nubo::platform {

// The optical door through the cdrom ioctls, on the device opened without blocking.
class LinuxOpticalTray final : public IOpticalTray
{
public:
    int open(const QString& device) override;
    void close(int id) override;
    int setDoor(int id, bool open) override;
    bool mediumPresent(const QString& device) override;
};

} // namespace nubo::platform
