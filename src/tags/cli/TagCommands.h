// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/cli/CliCommand.h"

#include <QList>

namespace nubo::tags::cli {

// nubo-cli's "tag" (the details-box text of a file) and "type" (its file-type name).
QList<nubo::cli::CliCommand> tagCommands();

} // namespace nubo::tags::cli
