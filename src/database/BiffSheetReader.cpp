// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BiffSheetReader.h"

#include "database/BiffRecordCursor.h"

#include <cstring>

// The cell records of a worksheet substream, as laid out in the [MS-XLS] format documentation
// (section 2.3 for the record types, 2.4 for their fields).
namespace nubo::database {
namespace {

constexpr quint16 kBof = 0x0809;
constexpr quint16 kRString = 0x00D6;
constexpr quint16 kEof = 0x000A;
constexpr quint16 kDimensions = 0x0200;
constexpr quint16 kLabelSst = 0x00FD;
constexpr quint16 kLabel = 0x0204;
constexpr quint16 kRk = 0x027E;
constexpr quint16 kNumber = 0x0203;
constexpr quint16 kMulRk = 0x00BD;
constexpr quint16 kFormula = 0x0006;
constexpr quint16 kString = 0x0207;
constexpr quint16 kBlank = 0x0201;
constexpr quint16 kMulBlank = 0x00BE;
constexpr quint16 kBoolErr = 0x0205;
constexpr quint16 kIndex = 0x020B;
constexpr quint16 kDbCell = 0x00D7;
constexpr quint16 kRow = 0x0208;
constexpr quint16 kNoRecord = 0x0000;    // what a zeroed stretch of the stream reads as
constexpr qsizetype kIndexBlocksAt = 16; // BIFF8 INDEX: DBCELL positions after 4 fields
constexpr quint16 kWorksheetType = 0x0010;
constexpr quint32 kSheetRows = 65536;
constexpr quint32 kSheetColumns = 256;
constexpr int kTextColumns = 4;

double rkValue(quint32 rk)
{
    double value = 0;
    if ((rk & 0x02) != 0) {
        value = double(qint32(rk) >> 2);
    } else {
        const quint64 bits = quint64(rk & 0xFFFFFFFCu) << 32;
        memcpy(&value, &bits, sizeof value);
    }
    return (rk & 0x01) != 0 ? value / 100 : value;
}

QString boolErrText(quint8 value, bool isError)
{
    if (!isError)
        return value != 0 ? QStringLiteral("VERDADERO") : QStringLiteral("FALSO");
    switch (value) {
    case 0x00:
        return QStringLiteral("#¡NULO!");
    case 0x07:
        return QStringLiteral("#¡DIV/0!");
    case 0x0F:
        return QStringLiteral("#¡VALOR!");
    case 0x17:
        return QStringLiteral("#¡REF!");
    case 0x1D:
        return QStringLiteral("#¿NOMBRE?");
    case 0x24:
        return QStringLiteral("#¡NUM!");
    default:
        return QStringLiteral("#N/A");
    }
}

// Collects the cells of one worksheet substream.
class SheetReader final
{
public:
    SheetReader(const BiffGlobals& globals, BiffSheetContent& sheet, quint32 valuesFrom)
        : m_globals(globals), m_sheet(sheet), m_valuesFrom(valuesFrom)
    {
    }

    void read(QByteArrayView stream, qsizetype from)
    {
        BiffRecordCursor cursor(stream, from);
        if (!cursor.next() || cursor.type() != kBof) {
            m_sheet.damage = QStringLiteral("la hoja no está donde el libro dice");
            return;
        }
        if (biffU16(cursor.data(), 2) != kWorksheetType)
            return;    // a chart or macro sheet first: no cells
        int depth = 0; // embedded substreams (charts) are skipped whole
        bool ended = false;
        while (!ended && cursor.next()) {
            if (cursor.type() == kBof) {
                ++depth;
            } else if (cursor.type() == kEof) {
                ended = depth-- == 0;
            } else if (depth == 0) {
                take(cursor, stream);
            }
        }
        if (!ended)
            damaged(QStringLiteral("la hoja está cortada"));
        checkDimensions();
    }

private:
    void take(BiffRecordCursor& cursor, QByteArrayView stream)
    {
        const QByteArrayView d = cursor.data();
        const quint16 row = biffU16(d, 0);
        const quint16 column = biffU16(d, 2);
        switch (cursor.type()) {
        case kNoRecord:
            damaged(QStringLiteral("la hoja tiene bytes borrados"));
            break;
        case kIndex:
            checkIndex(d, stream);
            break;
        case kDbCell: // its first field leads back to the block's first ROW record
            if (d.size() >= 4 &&
                biffU16(stream, cursor.position() - qsizetype(biffU32(d, 0))) != kRow)
                damaged(QStringLiteral("un bloque de filas no empieza donde dice su índice"));
            break;
        case kRow:
            if (d.size() >= 2)
                m_lastSeen = std::max<quint32>(m_lastSeen, row + 1);
            break;
        case kDimensions:
            takeDimensions(d);
            break;
        case kLabelSst:
            if (d.size() >= 10)
                takeSharedText(row, column, biffU32(d, 6));
            break;
        case kLabel:
        case kRString: // the text with its formatting runs, which are not kept
            if (d.size() >= 8)
                put(row, column, textAt(d, 6));
            break;
        case kRk:
            if (d.size() >= 10)
                putNumber(row, column, rkValue(biffU32(d, 6)));
            break;
        case kNumber:
            if (d.size() >= 14)
                putNumber(row, column, biffF64(d, 6));
            break;
        case kMulRk:
            for (qsizetype at = 4, c = column; at + 6 <= d.size() - 2; at += 6, ++c)
                putNumber(row, quint32(c), rkValue(biffU32(d, at + 2)));
            break;
        case kBoolErr:
            if (d.size() >= 8)
                put(row, column, boolErrText(quint8(d[6]), d[7] != 0));
            break;
        case kFormula:
            if (d.size() >= 20)
                takeFormula(cursor, row, column);
            break;
        case kBlank:
        case kMulBlank:
            if (d.size() >= 6)
                put(row, column, {});
            break;
        default:
            break;
        }
    }
    // A formula shows its cached result; a text result follows in a STRING record.
    void takeFormula(BiffRecordCursor& cursor, quint16 row, quint16 column)
    {
        const QByteArrayView d = cursor.data();
        if (biffU16(d, 12) != 0xFFFF) {
            putNumber(row, column, biffF64(d, 6));
            return;
        }
        switch (quint8(d[6])) {
        case 0: {
            BiffRecordCursor look = cursor;
            if (look.next() && look.type() == kString) {
                if (m_globals.biff8) {
                    const BiffContinuedData text = look.takeContinued();
                    put(row, column, BiffTextReader(text).unicodeString().value_or(QString()));
                } else {
                    put(row, column, textAt(look.data(), 0));
                }
                cursor = look;
            }
            break;
        }
        case 1:
        case 2:
            put(row, column, boolErrText(quint8(d[8]), d[6] == 2));
            break;
        default:
            put(row, column, {});
            break;
        }
    }
    // The last row from DIMENSIONS: 32-bit row numbers since Excel 97, 16-bit before.
    void takeDimensions(QByteArrayView d)
    {
        const quint32 last = m_globals.biff8 ? (d.size() >= 8 ? biffU32(d, 4) : 0)
                                             : (d.size() >= 4 ? biffU16(d, 2) : 0);
        m_sheet.lastRow = std::max(m_sheet.lastRow, std::min(last, kSheetRows));
        m_sheet.declaredLastRow = std::max(m_sheet.declaredLastRow, std::min(last, kSheetRows));
    }
    void takeSharedText(quint16 row, quint16 column, quint32 index)
    {
        if (index >= quint32(m_globals.strings.size()))
            damaged(QStringLiteral("una celda nombra un texto que la tabla no tiene"));
        put(row, column, m_globals.strings.value(qsizetype(index)));
    }
    // Each cell block the row index names must start with its DBCELL record where it says.
    void checkIndex(QByteArrayView d, QByteArrayView stream)
    {
        if (!m_globals.biff8)
            return;
        for (qsizetype at = kIndexBlocksAt; at + 4 <= d.size(); at += 4) {
            const quint32 position = biffU32(d, at);
            if (biffU16(stream, qsizetype(position)) != kDbCell) {
                damaged(QStringLiteral("el índice de filas no coincide con las celdas"));
                return;
            }
        }
    }
    void checkDimensions()
    {
        if (m_sheet.declaredLastRow > m_lastSeen)
            damaged(QStringLiteral("la hoja declara %1 filas y se encontraron %2")
                        .arg(m_sheet.declaredLastRow)
                        .arg(m_lastSeen));
    }
    void damaged(const QString& what)
    {
        if (m_sheet.damage.isEmpty())
            m_sheet.damage = what;
    }
    // A cell text at the given offset: a unicode string, or 8-bit in the code page before
    // Excel 97.
    QString textAt(QByteArrayView d, qsizetype at) const
    {
        if (m_globals.biff8) {
            const BiffContinuedData text{d.sliced(at).toByteArray(), {}};
            return BiffTextReader(text).unicodeString().value_or(QString());
        }
        const qsizetype count = std::min<qsizetype>(biffU16(d, at), d.size() - at - 2);
        return count > 0 ? m_globals.codePage.decode(d.sliced(at + 2, count)) : QString();
    }
    void putNumber(quint32 row, quint32 column, double number)
    {
        if (column < m_valuesFrom)
            put(row, column, generalNumberText(number));
        else
            putValue(row, column, {QString(), number, true});
    }
    void put(quint32 row, quint32 column, const QString& text)
    {
        if (column < m_valuesFrom) {
            seen(row);
            if (column >= kTextColumns || text.isEmpty())
                return;
            if (m_sheet.rows.size() <= qsizetype(row))
                m_sheet.rows.resize(row + 1);
            m_sheet.rows[row].field(int(column)) = text;
            return;
        }
        putValue(row, column, {text, 0, false});
    }
    // Values are kept only for the cells the file holds, so a sheet costs what its file does.
    void putValue(quint32 row, quint32 column, BiffValue&& value)
    {
        seen(row);
        if (column >= kSheetColumns || (!value.isNumber && value.text.isEmpty()))
            return;
        if (m_sheet.values.size() <= qsizetype(row))
            m_sheet.values.resize(row + 1);
        value.column = quint16(column);
        BiffValueRow& cells = m_sheet.values[row];
        for (BiffValue& cell : cells) {
            if (cell.column == column) {
                cell = std::move(value);
                return;
            }
        }
        cells.append(std::move(value));
    }
    void seen(quint32 row)
    {
        m_sheet.lastRow = std::max(m_sheet.lastRow, row + 1);
        m_lastSeen = std::max(m_lastSeen, row + 1);
    }

    const BiffGlobals& m_globals;
    BiffSheetContent& m_sheet;
    quint32 m_valuesFrom;   // columns from here on are kept as values
    quint32 m_lastSeen = 0; // the last row a cell or a ROW record was found in, from 1
};

} // namespace

void readBiffSheet(const BiffGlobals& globals, QByteArrayView stream, qsizetype from,
                   quint32 valuesFrom, BiffSheetContent& sheet)
{
    SheetReader(globals, sheet, valuesFrom).read(stream, from);
}

} // namespace nubo::database
