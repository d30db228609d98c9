// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace nubo::database {

// The workbook format's border style code for the spreadsheet's line style and weight numbers.
// The table is written down in docs/catalogue-files.md.
int biffBorderStyle(int lineStyle, int weight);

} // namespace nubo::database
