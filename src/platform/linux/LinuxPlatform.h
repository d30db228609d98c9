#pragma once

#include "platform/PlatformServices.h"

namespace nubo::platform {

// The one factory of the real platform services; only executables call it.
PlatformServices createLinuxPlatform();

} // namespace nubo::platform
