// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/DiscRecord.h"
#include "database/CatalogueRecord.h"
#include "database/JetRow.h"
#include "database/JetSchema.h"
#include "database/LocalDateTexts.h"

namespace nubo::database::jet {

// The most characters a text field of the catalogue's tables holds.
inline constexpr qsizetype kMaxFieldText = 255;

// The table "Catalogo": the four list columns as texts first, so a reader that knows only those
// still finds them where it always did, then the file's details. TAMAÑO is a Double, exact for
// every size up to 2^53 bytes; AÑO and PISTA are Longs; the other details are texts as the list
// shows them.
Table catalogueTable(const QString& name, const CatalogueHeader& header);
// The table of discs: one text or Double field per disc field, in their order.
Table discsTable(const QString& name);

// A record's values by column number. Unknown details are null. A detail text longer than a
// field holds is cut to kMaxFieldText characters and counted in shortened; the four list texts
// must already fit.
QList<Value> catalogueValues(const CatalogueRecord& record, LocalDateTexts& dates,
                             qsizetype& shortened);
QList<Value> discValues(const core::DiscRecord& disc, qsizetype& shortened);

} // namespace nubo::database::jet
