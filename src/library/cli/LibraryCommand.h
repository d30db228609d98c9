// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/cli/CliCommand.h"

namespace nubo::library::cli {

// Takes a leading "--library FILE" off nubo-cli's arguments: the library the "library" command
// uses instead of the default one. Empty when not given.
QString takeLibraryOption(QStringList& arguments);

// nubo-cli's "library": adds catalogues to the library and answers from it.
nubo::cli::CliCommand libraryCommand(const QString& libraryPath = {});

} // namespace nubo::library::cli
