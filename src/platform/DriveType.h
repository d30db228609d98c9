// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace nubo::platform {

// The drive type numbers that the program tests, as Windows numbers them.
enum class DriveType : int {
    Unknown = 0,
    NoRootDir = 1,
    Removable = 2,
    Fixed = 3,
    Remote = 4,
    CdRom = 5,
    RamDisk = 6,
};

} // namespace nubo::platform
