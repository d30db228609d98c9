// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/CatalogueFiles.h"

#include <QTextStream>

namespace nubo::database::cli {

// What "show" prints of a catalogue, one tab-separated line each: the rows' five list columns
// (as the list loads them), the rows with every column, or the disc records.
enum class Listing { Rows, EveryColumn, Discs };

void printCatalogue(const LoadedCatalogue& loaded, Listing listing, QTextStream& out);

} // namespace nubo::database::cli
