// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/cli/CliCommand.h"

namespace nubo::database::cli {

// nubo-cli's "find": the rows of saved catalogues that match the words of a find, by the list
// window's find rules.
nubo::cli::CliCommand findCommand();

} // namespace nubo::database::cli
