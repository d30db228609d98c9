// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueRow.h"
#include "core/DiscRecord.h"

#include <QList>
#include <QString>

#include <utility>

namespace nubo::catalogue {

// A caption and its value, in the order they are shown.
using FieldTexts = QList<std::pair<QString, QString>>;

// What the catalogue knows of a row whose file cannot be reached: every column of the row and
// the record of its disc.
struct RowFacts
{
    QString fileName;   // NOMBRE with its extension, as the file was called
    FieldTexts columns; // every column, captions as the list shows them
    FieldTexts disc;    // the disc record's fields; empty when the group has no record

    static RowFacts of(const CatalogueRow& row, const core::DiscRecord* disc);
    bool operator==(const RowFacts&) const = default;
};

} // namespace nubo::catalogue
