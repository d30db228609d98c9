// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>

#include <array>

namespace nubo::database {

// One sheet row as shared-string indices; kNoText marks an empty cell.
using BiffRowCells = std::array<quint32, 4>;
inline constexpr quint32 kNoText = 0xFFFFFFFF;

// How every cell of the sheet looks: its cell format, whether empty cells are still written
// (with the format, so styling covers them) and the rows' height in twentieths of a point.
struct BiffCellLook
{
    quint16 format = 15;
    bool blankCells = false;
    quint16 rowHeight = 255;
};

// The four columns' widths in 1/256 of a character, so a spreadsheet shows the texts whole.
using BiffColumnWidths = std::array<quint16, 4>;

// Builds the worksheet substream: row blocks with their lookup records, then the window.
QByteArray buildWorksheet(quint32 streamOffset, const QList<BiffRowCells>& rows,
                          const BiffCellLook& look, const BiffColumnWidths& widths);

} // namespace nubo::database
