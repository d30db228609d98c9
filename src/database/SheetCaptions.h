// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/DiscRecord.h"
#include "core/FileDetails.h"

#include <QString>

#include <optional>

namespace nubo::database {

// A caption as compared when a sheet's columns are found by their row-1 text: without accents,
// blanks around it or case, so "Año", " ano " and "AÑO" name the same column.
QString captionKey(const QString& caption);

// The detail column or the disc field a caption names, if any.
std::optional<core::DetailField> detailFieldNamed(const QString& caption);
std::optional<core::DiscField> discFieldNamed(const QString& caption);

// Whether a sheet (other than the first) is the one that holds the disc records: "Discos" in
// any case, or "Discos 2" when the catalogue's own sheet is called "Discos".
bool isDiscsSheetName(const QString& name);
// The name the disc records' sheet takes beside a first sheet called firstSheet.
QString discsSheetNameBeside(const QString& firstSheet);

} // namespace nubo::database
