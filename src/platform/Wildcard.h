#pragma once

#include <QString>

namespace nubo::platform {

// Matches a file name against a mask the way Windows file enumeration does:
// case-insensitive, '*' for any run, '?' for one character, and "*.*" for every name.
bool wildcardMatch(const QString& pattern, const QString& name);

} // namespace nubo::platform
