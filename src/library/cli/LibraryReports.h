// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/cli/CliCommand.h"
#include "library/LibraryIndex.h"

namespace nubo::library::cli {

// "library dups": each duplicate as a line with its rule, then one line per copy.
int printDuplicates(LibraryIndex& index, nubo::cli::CliIo& io);
// "library stats": totals per disc, group, format and overall, as text or as JSON.
int printStats(LibraryIndex& index, nubo::cli::CliIo& io, bool json);

} // namespace nubo::library::cli
