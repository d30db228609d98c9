// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/DesktopShell.h"

class QWidget;

namespace nubo::platform {

// The desktop shell's windowed parts for createLinuxPlatform(): the "open with" chooser over
// the active window (the given one when none is), and Qt's desktop opener.
DesktopPrompts desktopPrompts(QWidget* chooserParent);

} // namespace nubo::platform
