// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace nubo::platform {

// Tells whether another process of this user runs the same executable file.
class IInstanceCheck
{
public:
    virtual ~IInstanceCheck() = default;
    virtual bool anotherInstanceRunning() const = 0;
};

} // namespace nubo::platform
