// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/PlatformServices.h"
#include "platform/linux/DesktopShell.h"

namespace nubo::platform {

// The one factory of the real platform services; only executables call it. A program with
// windows passes the shell's windowed parts (desktopPrompts() of the ui library); without
// them, as in nubo-cli, the services have no shell.
PlatformServices createLinuxPlatform(DesktopPrompts prompts = {});

} // namespace nubo::platform
