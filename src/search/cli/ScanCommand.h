// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/cli/CliCommand.h"
#include "platform/IDirectoryReader.h"
#include "platform/IDrives.h"
#include "platform/IVolumes.h"

namespace nubo::search::cli {

// nubo-cli's "scan": walks folders as the list window's search does and prints the catalogue
// rows it would hold, newest first, one line each with tab-separated fields: the five texts
// (then the tag columns of --tags) and last the nine detail columns; or saves them, with the
// record of the disc each folder is on, as a catalogue.
nubo::cli::CliCommand scanCommand(const platform::IDrives& drives,
                                  const platform::IDirectoryReader& directories,
                                  const platform::IVolumes& volumes);

} // namespace nubo::search::cli
