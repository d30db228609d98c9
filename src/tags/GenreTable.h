// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::tags {

// The tag's genre names, indexed by the genre byte.
inline constexpr int kLastGenre = 147;

// The name of a genre byte; the empty text above kLastGenre or below 0.
QString genreName(int index);

} // namespace nubo::tags
