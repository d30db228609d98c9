// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDirectoryReader.h"
#include "platform/IDrives.h"
#include "platform/IInstanceCheck.h"
#include "platform/IOpticalTray.h"
#include "platform/IRegistry.h"
#include "platform/IShell.h"
#include "platform/IVolumes.h"

#include <memory>

namespace nubo::platform {

// The platform services, owned together by the composition root.
struct PlatformServices
{
    std::unique_ptr<IDrives> drives;
    std::unique_ptr<IInstanceCheck> instances;
    std::unique_ptr<IRegistry> registry;
    std::unique_ptr<IVolumes> volumes;
    std::unique_ptr<IOpticalTray> tray;
    std::unique_ptr<IDirectoryReader> directories;
    std::unique_ptr<IShell> shell; // null in a program without windows
};

} // namespace nubo::platform
