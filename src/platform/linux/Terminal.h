// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace nubo::platform {

// Whether the standard error stream is a terminal (progress lines go there only then).
bool stderrIsTerminal();

} // namespace nubo::platform
