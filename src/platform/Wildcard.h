#pragma once

#include <QString>

namespace nubo::platform {

// Matches a file name against a mask the way the original file enumeration did:
// case-insensitive, '*' for any run, '?' for one character, and "*.*" for every name.
bool wildcardMatch(const QString& pattern, const QString& name);

} // namespace nubo::platform
