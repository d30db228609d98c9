// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/CatalogueRecord.h"

#include <QByteArrayView>
#include <QList>
#include <QString>

#include <variant>

namespace nubo::database {

// The first sheet of a workbook as a catalogue sees it: its name and the text of columns A to D.
struct BiffSheetContent
{
    QString name;
    quint32 lastRow = 0;         // the last used row counted from 1; 0 for an empty sheet
    QList<CatalogueRecord> rows; // index 0 is row 1; rows past the end are empty
    quint32 declaredLastRow = 0; // the last row the sheet's DIMENSIONS record states
    // Empty when the workbook reads whole; otherwise what was found damaged, in Spanish: the
    // cells before the damage are still in rows.
    QString damage;
};

// Excel 2, 3 and 4 files are named by version: only Excel 5 and later are read.
enum class BiffProblem { NotWorkbook, Excel2, Excel3, Excel4 };

// Reads an Excel 97 or Excel 5/95 workbook stream, whatever the stream is called; the BOF record
// says which. Damaged data never reads out of bounds: a cut or inconsistent stream gives the
// cells read up to the damage and names it, or a problem when not even the sheet can be found.
// What the file declares is checked against what is read: the shared-string count, both end
// records, the row index's cell-block positions, the sheet's dimensions, the string indices.
[[nodiscard]] std::variant<BiffSheetContent, BiffProblem>
parseWorkbookStream(QByteArrayView stream);

// A number as the spreadsheet's General format shows it in a cell.
QString generalNumberText(double value);

} // namespace nubo::database
