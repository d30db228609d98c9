#pragma once

#include <QString>

namespace nubo::platform {

// Matches a file name against a mask the way Windows file enumeration does: case-insensitive;
// '*' for any run and '?' for one character or none at a dot or the end; a dot before a
// wildcard or at the end also matches a name without one ("tema.*" finds "tema", "*." finds
// names without an extension); trailing blanks and dots are ignored; "*.*" names every file.
bool wildcardMatch(const QString& pattern, const QString& name);

} // namespace nubo::platform
