// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IInstanceCheck.h"

namespace nubo::platform {

// Looks through /proc for another process of this user whose executable is our own file.
class LinuxInstanceCheck final : public IInstanceCheck
{
public:
    bool anotherInstanceRunning() const override;
};

} // namespace nubo::platform
