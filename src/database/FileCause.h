// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::database {

// What a failed system call on a catalogue file means, as one Spanish sentence: a full disk, a
// quota, a read-only file system and a refused permission are each named; any other error
// gives the system's own text.
QString fileErrorCause(int error);

} // namespace nubo::database
