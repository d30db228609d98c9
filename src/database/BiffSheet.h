// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

namespace nubo::database {

inline constexpr quint32 kNoText = 0xFFFFFFFF;

// One cell to write: a shared-string index, a number, or nothing.
struct BiffCell
{
    double number = 0;
    quint32 text = kNoText;
    bool isNumber = false;

    bool isEmpty() const { return !isNumber && text == kNoText; }
};

// A sheet's cells, row by row, every row as wide as the sheet.
struct BiffGrid
{
    int columns = 0;
    QList<BiffCell> cells; // row r's column c at r * columns + c

    qsizetype rowCount() const { return columns == 0 ? 0 : cells.size() / columns; }
    const BiffCell& at(qsizetype row, int column) const { return cells[row * columns + column]; }
};

// How every cell of the sheet looks: its cell format (numbers take their own, which shows them
// whole), whether empty cells are still written (with the format, so styling covers them) and
// the rows' height in twentieths of a point.
struct BiffCellLook
{
    quint16 format = 15;
    quint16 numberFormat = 16;
    bool blankCells = false;
    quint16 rowHeight = 255;
};

// Each column's width in 1/256 of a character, so a spreadsheet shows the values whole.
using BiffColumnWidths = QList<quint16>;

// Builds a worksheet substream: row blocks with their lookup records, then the window; the
// first sheet of a workbook is the one shown selected.
QByteArray buildWorksheet(quint32 streamOffset, const BiffGrid& grid, const BiffCellLook& look,
                          const BiffColumnWidths& widths, bool selected);

} // namespace nubo::database
