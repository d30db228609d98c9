// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/RowFacts.h"

namespace nubo::catalogue {

RowFacts RowFacts::of(const CatalogueRow& row, const core::DiscRecord* disc)
{
    RowFacts facts;
    facts.fileName =
        row.formato == noExtensionText() ? row.nombre : row.nombre + QLatin1Char('.') + row.formato;
    const QStringList captions = columnCaptions();
    for (int c = 0; c < kColumnCount; ++c)
        facts.columns.append({captions.at(c), row.displayText(static_cast<Column>(c))});
    if (disc) {
        const QStringList discCaptions = core::discCaptions();
        for (int f = 0; f < core::kDiscFieldCount; ++f)
            facts.disc.append({discCaptions.at(f), disc->text(static_cast<core::DiscField>(f))});
    }
    return facts;
}

} // namespace nubo::catalogue
