// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

namespace nubo::database {

// Initialises the compound-file library once per process. The library's own warnings and
// criticals (it prints them on damaged files) never reach the terminal: each goes, as one
// line, to the sink set below, or nowhere when none is set.
void ensureGsf();

// Where the library's messages go from now on; an empty sink drops them.
void setGsfMessageSink(std::function<void(const QString&)> sink);

} // namespace nubo::database
