#pragma once

#include <QByteArray>
#include <QList>

#include <array>

namespace nubo::database {

// One sheet row as shared-string indices; kNoText marks an empty cell.
using BiffRowCells = std::array<quint32, 4>;
inline constexpr quint32 kNoText = 0xFFFFFFFF;

// Builds the worksheet substream: row blocks with their lookup records, then the window.
// With blankCells, empty cells are still written (with the cell format) so styling covers them.
QByteArray buildWorksheet(quint32 streamOffset, const QList<BiffRowCells>& rows, quint16 cellFormat,
                          bool blankCells);

} // namespace nubo::database
