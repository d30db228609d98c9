// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/cli/CliCommand.h"
#include "platform/IDirectoryReader.h"
#include "platform/IDrives.h"

namespace nubo::search::cli {

// nubo-cli's "scan": walks folders as the list window's search does and prints the catalogue
// rows it would hold, newest first, one line each with five tab-separated fields.
nubo::cli::CliCommand scanCommand(const platform::IDrives& drives,
                                  const platform::IDirectoryReader& directories);

} // namespace nubo::search::cli
