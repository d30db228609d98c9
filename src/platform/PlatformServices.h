#pragma once

#include "platform/IDrives.h"
#include "platform/IInstanceCheck.h"
#include "platform/IRegistry.h"

#include <memory>

namespace nubo::platform {

// The platform services without a user interface, owned together by the composition root.
struct PlatformServices
{
    std::unique_ptr<IDrives> drives;
    std::unique_ptr<IInstanceCheck> instances;
    std::unique_ptr<IRegistry> registry;
};

} // namespace nubo::platform
