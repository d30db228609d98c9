// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/cli/CliCommand.h"

namespace nubo::print::cli {

// nubo-cli's "cover": a catalogue (.xls, .mdb or a scan TSV) laid out as a PDF cover.
// Drawing needs a QGuiApplication; coverNeedsGui tells main which application to create.
nubo::cli::CliCommand coverCommand();
bool coverNeedsGui(int argc, char** argv);

} // namespace nubo::print::cli
