// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileDetails.h"

#include <QString>

namespace nubo::tags {

// What a catalogue row keeps of the file at path: its size and modification time, and for a
// file the tag library knows by its extension, its tags and length. A missing file gives
// nothing; a file without tags gives its size and date. Safe to call from several threads at
// once, each on its own file.
core::FileDetails readFileDetails(const QString& path);

// Whether the tag library knows the format of a file of this name by its extension.
bool hasTagFormat(const QString& path);

} // namespace nubo::tags
