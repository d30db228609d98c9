// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/Terminal.h"

#include <unistd.h>

namespace nubo::platform {

bool stderrIsTerminal()
{
    return ::isatty(STDERR_FILENO) == 1;
}

} // namespace nubo::platform
