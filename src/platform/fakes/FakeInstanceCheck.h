// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IInstanceCheck.h"

namespace nubo::platform {

class FakeInstanceCheck final : public IInstanceCheck
{
public:
    bool running = false;
    bool anotherInstanceRunning() const override { return running; }
};

} // namespace nubo::platform
