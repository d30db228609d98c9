// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/CatalogueRecord.h"

#include <QByteArrayView>
#include <QList>
#include <QString>

#include <functional>
#include <optional>
#include <variant>

namespace nubo::database {

// A cell's value: the number it holds, or its text as a spreadsheet shows it.
struct BiffValue
{
    QString text;
    double number = 0;
    bool isNumber = false;
    quint16 column = 0; // counted from 0 (column A)
};

// The cells of one row that hold a value, in the order the file gives them.
using BiffValueRow = QList<BiffValue>;

// A further sheet, read as values: rows index 0 is row 1, rows past the end hold none.
struct BiffValueSheet
{
    QString name;
    QList<BiffValueRow> rows;
    QString damage; // as BiffSheetContent's
};

// The first sheet of a workbook as a catalogue sees it: its name, the text of columns A to D
// and the values of the columns after them.
struct BiffSheetContent
{
    QString name;
    quint32 lastRow = 0;         // the last used row counted from 1; 0 for an empty sheet
    QList<CatalogueRecord> rows; // index 0 is row 1; rows past the end are empty
    QList<BiffValueRow> values;  // the cells from column E on; index 0 is row 1
    quint32 declaredLastRow = 0; // the last row the sheet's DIMENSIONS record states
    // Empty when the workbook reads whole; otherwise what was found damaged, in Spanish: the
    // cells before the damage are still in rows.
    QString damage;
    std::optional<BiffValueSheet> named; // the further sheet asked for, when the workbook has it
};

// Excel 2, 3 and 4 files are named by version: only Excel 5 and later are read.
enum class BiffProblem { NotWorkbook, Excel2, Excel3, Excel4 };

// Reads an Excel 97 or Excel 5/95 workbook stream, whatever the stream is called; the BOF record
// says which. Damaged data never reads out of bounds: a cut or inconsistent stream gives the
// cells read up to the damage and names it, or a problem when not even the sheet can be found.
// What the file declares is checked against what is read: the shared-string count, both end
// records, the row index's cell-block positions, the sheet's dimensions, the string indices.
// The first sheet after the first whose name wanted accepts is read into named.
[[nodiscard]] std::variant<BiffSheetContent, BiffProblem>
parseWorkbookStream(QByteArrayView stream, const std::function<bool(const QString&)>& wanted = {});

// A number as the spreadsheet's General format shows it in a cell.
QString generalNumberText(double value);

} // namespace nubo::database
