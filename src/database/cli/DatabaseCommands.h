// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/cli/CliCommand.h"

namespace nubo::database::cli {

// nubo-cli's catalogue-file commands: "show", "convert" and "find".
QList<nubo::cli::CliCommand> databaseCommands();

} // namespace nubo::database::cli
