// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/SheetStyle.h"

#include <QString>

namespace nubo::database {

// What the next saved workbook takes from the sheet configuration window: its sheet name and
// the style of its used range. The window edits one such record; the save flow reads it and a
// loaded workbook writes its sheet name back into it.
struct SheetSettings
{
    QString sheetName = QStringLiteral("Colección");
    SheetStyle style;

    bool operator==(const SheetSettings&) const = default;
};

} // namespace nubo::database
