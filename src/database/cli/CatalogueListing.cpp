// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/cli/CatalogueListing.h"

#include "database/cli/FlatField.h"

namespace nubo::database::cli {

namespace {

void printRow(const CatalogueRecord& r, bool everyColumn, QTextStream& out)
{
    out << flat(r.nombre) << '\t' << flat(r.direccion) << '\t' << flat(r.origen) << '\t'
        << flat(r.formato) << '\t' << loadedRowDrive();
    if (everyColumn) {
        for (int f = 0; f < core::kDetailFieldCount; ++f)
            out << '\t' << flat(r.details.text(static_cast<core::DetailField>(f)));
    }
    out << '\n';
}

void printDisc(const core::DiscRecord& disc, QTextStream& out)
{
    for (int f = 0; f < core::kDiscFieldCount; ++f)
        out << (f > 0 ? "\t" : "") << flat(disc.text(static_cast<core::DiscField>(f)));
    out << '\n';
}

} // namespace

void printCatalogue(const LoadedCatalogue& loaded, Listing listing, QTextStream& out)
{
    if (listing == Listing::Discs) {
        for (const core::DiscRecord& disc : loaded.discs)
            printDisc(disc, out);
        return;
    }
    for (const CatalogueRecord& r : loaded.rows)
        printRow(r, listing == Listing::EveryColumn, out);
}

} // namespace nubo::database::cli
