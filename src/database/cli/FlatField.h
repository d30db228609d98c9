// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::database::cli {

// A field on one output line of "show" and "find": tabs and line breaks become blanks.
QString flat(QString text);

} // namespace nubo::database::cli
