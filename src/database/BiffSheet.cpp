// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BiffSheet.h"

#include "database/BiffStrings.h"
#include "database/ByteSink.h"

#include <algorithm>

namespace nubo::database {
namespace {

constexpr quint16 kBof = 0x0809;
constexpr quint16 kEof = 0x000A;
constexpr quint16 kIndex = 0x020B;
constexpr quint16 kDimensions = 0x0200;
constexpr quint16 kRow = 0x0208;
constexpr quint16 kLabelSst = 0x00FD;
constexpr quint16 kNumber = 0x0203;
constexpr quint16 kBlank = 0x0201;
constexpr quint16 kDbCell = 0x00D7;
constexpr quint16 kWindow2 = 0x023E;
constexpr quint16 kDefColWidth = 0x0055;
constexpr quint16 kColInfo = 0x007D;
constexpr int kRowsPerBlock = 32;

struct RowSpan
{
    int first = -1; // first column with a cell, -1 for none
    int last = -1;
};

class SheetBuilder final
{
public:
    SheetBuilder(quint32 base, const BiffGrid& grid, const BiffCellLook& look,
                 const BiffColumnWidths& widths, bool selected)
        : m_base(base), m_grid(grid), m_look(look), m_widths(widths), m_selected(selected)
    {
    }

    QByteArray build()
    {
        int firstRow = -1;
        int lastRow = -1;
        int lastColumn = -1;
        for (int r = 0; r < m_grid.rowCount(); ++r) {
            const RowSpan rs = span(r);
            if (rs.first >= 0) {
                firstRow = firstRow < 0 ? r : firstRow;
                lastRow = r;
                lastColumn = std::max(lastColumn, rs.last);
            }
        }
        m_out.reserve(m_grid.cells.size() * 14 + 4096); // a cell record is 10 to 18 bytes
        appendBof();
        const qsizetype indexAt = m_out.size();
        const int blocks =
            firstRow < 0 ? 0 : (lastRow / kRowsPerBlock - firstRow / kRowsPerBlock + 1);
        appendIndex(firstRow, lastRow, blocks);
        const auto defColWidthAt = quint32(m_base + m_out.size());
        record(kDefColWidth, [](ByteSink& s) { s.u16(8); });
        appendColumnWidths();
        appendDimensions(firstRow, lastRow, lastColumn);
        QList<quint32> dbCells;
        for (int b = 0; b < blocks; ++b)
            dbCells.append(appendBlock(firstRow / kRowsPerBlock + b));
        ByteSink::put32(m_out, indexAt + 4 + 12, defColWidthAt);
        for (int b = 0; b < blocks; ++b)
            ByteSink::put32(m_out, indexAt + 4 + 16 + 4 * b, dbCells.at(b));
        record(kWindow2, [this](ByteSink& s) {
            // grid, headers, zeros, default colours, outline symbols; the first sheet selected
            s.u16(m_selected ? 0x06B6 : 0x00B6);
            s.u16(0);
            s.u16(0);
            s.u32(64); // automatic grid colour
            s.u16(0);
            s.u16(0);
            s.u32(0);
        });
        record(kEof, [](ByteSink&) {});
        return m_out;
    }

private:
    // Written in place, its length patched after: every sheet record is far below the
    // 8,224 bytes a record holds, and a sheet has up to a million of them.
    template <typename Fill> void record(quint16 type, Fill fill)
    {
        ByteSink sink(m_out);
        sink.u16(type);
        const qsizetype lengthAt = m_out.size();
        sink.u16(0);
        fill(sink);
        ByteSink::put16(m_out, lengthAt, quint32(m_out.size() - lengthAt - 2));
    }
    RowSpan span(int r) const
    {
        RowSpan result;
        for (int c = 0; c < m_grid.columns; ++c) {
            if (m_look.blankCells || !m_grid.at(r, c).isEmpty()) {
                result.first = result.first < 0 ? c : result.first;
                result.last = c;
            }
        }
        return result;
    }
    void appendBof()
    {
        record(kBof, [](ByteSink& s) {
            s.u16(0x0600); // BIFF8
            s.u16(0x0010); // worksheet
            s.u16(0x0DBB);
            s.u16(0x07CC);
            s.u32(0x000000C1);
            s.u32(0x00000006);
        });
    }
    void appendIndex(int firstRow, int lastRow, int blocks)
    {
        record(kIndex, [&](ByteSink& s) {
            s.u32(0);
            s.u32(firstRow < 0 ? 0 : quint32(firstRow));
            s.u32(quint32(lastRow + 1));
            s.u32(0); // patched: position of the default column width
            s.zeros(4 * blocks);
        });
    }
    void appendColumnWidths()
    {
        for (int c = 0; c < m_widths.size(); ++c) {
            record(kColInfo, [&](ByteSink& s) {
                s.u16(quint32(c));
                s.u16(quint32(c));
                s.u16(m_widths[c]);
                s.u16(15); // empty cells of the column keep the default cell format
                s.u16(0);
                s.u16(0);
            });
        }
    }
    void appendDimensions(int firstRow, int lastRow, int lastColumn)
    {
        record(kDimensions, [&](ByteSink& s) {
            s.u32(firstRow < 0 ? 0 : quint32(firstRow));
            s.u32(quint32(lastRow + 1));
            s.u16(0);
            s.u16(quint32(lastColumn + 1));
            s.u16(0);
        });
    }
    // Writes one block of rows and returns the stream position of its lookup record.
    quint32 appendBlock(int block)
    {
        const int from = block * kRowsPerBlock;
        const int to = std::min<int>(from + kRowsPerBlock, int(m_grid.rowCount()));
        const qsizetype firstRowRecord = m_out.size();
        QList<int> used;
        for (int r = from; r < to; ++r) {
            const RowSpan rs = span(r);
            if (rs.first < 0)
                continue;
            used.append(r);
            record(kRow, [&](ByteSink& s) {
                s.u16(quint32(r));
                s.u16(quint32(rs.first));
                s.u16(quint32(rs.last + 1));
                s.u16(m_look.rowHeight); // not a custom height: it follows the cells' font
                s.u16(0);
                s.u16(0);
                s.u16(0x0100);
                s.u16(0x000F);
            });
        }
        QList<qsizetype> cellStarts;
        for (const int r : used) {
            cellStarts.append(m_out.size());
            appendCells(r);
        }
        const qsizetype dbCellAt = m_out.size();
        record(kDbCell, [&](ByteSink& s) {
            s.u32(quint32(dbCellAt - firstRowRecord));
            for (int i = 0; i < cellStarts.size(); ++i) {
                const qsizetype from = i == 0 ? firstRowRecord + 20 : cellStarts.at(i - 1);
                s.u16(quint32(cellStarts.at(i) - from));
            }
        });
        return quint32(m_base + dbCellAt);
    }
    void appendCells(int r)
    {
        for (int c = 0; c < m_grid.columns; ++c) {
            const BiffCell& cell = m_grid.at(r, c);
            if (cell.isNumber) {
                record(kNumber, [&](ByteSink& s) {
                    s.u16(quint32(r));
                    s.u16(quint32(c));
                    s.u16(m_look.numberFormat);
                    s.f64(cell.number);
                });
            } else if (cell.text != kNoText) {
                record(kLabelSst, [&](ByteSink& s) {
                    s.u16(quint32(r));
                    s.u16(quint32(c));
                    s.u16(m_look.format);
                    s.u32(cell.text);
                });
            } else if (m_look.blankCells) {
                record(kBlank, [&](ByteSink& s) {
                    s.u16(quint32(r));
                    s.u16(quint32(c));
                    s.u16(m_look.format);
                });
            }
        }
    }

    quint32 m_base;
    const BiffGrid& m_grid;
    BiffCellLook m_look;
    BiffColumnWidths m_widths;
    bool m_selected;
    QByteArray m_out;
};

} // namespace

QByteArray buildWorksheet(quint32 streamOffset, const BiffGrid& grid, const BiffCellLook& look,
                          const BiffColumnWidths& widths, bool selected)
{
    return SheetBuilder(streamOffset, grid, look, widths, selected).build();
}

} // namespace nubo::database
