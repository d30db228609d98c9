// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BiffWorkbookParser.h"

#include "database/BiffCodePage.h"
#include "database/BiffRecordCursor.h"

#include <cmath>
#include <cstring>

namespace nubo::database {
namespace {

constexpr quint16 kBof = 0x0809;
constexpr quint16 kBof2 = 0x0009;
constexpr quint16 kBof3 = 0x0209;
constexpr quint16 kBof4 = 0x0409;
constexpr quint16 kCodePage = 0x0042;
constexpr quint16 kRString = 0x00D6;
constexpr quint16 kEof = 0x000A;
constexpr quint16 kBoundSheet = 0x0085;
constexpr quint16 kSst = 0x00FC;
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
constexpr quint16 kBiff8 = 0x0600;
constexpr quint16 kBiff5 = 0x0500;
constexpr quint16 kGlobalsType = 0x0005;
constexpr quint16 kWorksheetType = 0x0010;
constexpr quint32 kSheetRows = 65536;
constexpr int kColumns = 4;

struct Globals
{
    bool biff8 = true; // false: Excel 5/95, whose texts are 8-bit in the workbook's code page
    BiffCodePage codePage;
    QString sheetName;
    qsizetype sheetOffset = -1;
    QList<QString> strings;
    QString damage;
};

// The texts of the shared-string table; damage names a table that holds fewer than it states.
void readSharedStrings(const BiffContinuedData& data, QList<QString>& strings, QString& damage)
{
    BiffTextReader reader(data);
    const auto total = reader.u32();
    const auto unique = reader.u32();
    if (!total || !unique) {
        damage = QStringLiteral("la tabla de textos está cortada");
        return;
    }
    // The stated count is not trusted for the reservation: each text takes at least 3 bytes.
    strings.reserve(std::min<qsizetype>(*unique, data.bytes.size() / 3));
    for (quint32 i = 0; i < *unique; ++i) {
        auto text = reader.unicodeString();
        if (!text) { // a cut table keeps the texts read so far
            damage = QStringLiteral("la tabla de textos tiene %1 de los %2 textos que declara")
                         .arg(i)
                         .arg(*unique);
            return;
        }
        strings.append(std::move(*text));
    }
    // Bytes past the last text mean the texts read were not the ones written (a zeroed stretch
    // reads as a run of empty texts).
    if (!reader.atEnd())
        damage = QStringLiteral("la tabla de textos no acaba donde declara");
}

// The first BOF names the file's version; Excel 2 to 4 files are refused by version.
std::optional<BiffProblem> readVersion(BiffRecordCursor& cursor, Globals& globals)
{
    if (!cursor.next())
        return BiffProblem::NotWorkbook;
    switch (cursor.type()) {
    case kBof2:
        return BiffProblem::Excel2;
    case kBof3:
        return BiffProblem::Excel3;
    case kBof4:
        return BiffProblem::Excel4;
    case kBof:
        break;
    default:
        return BiffProblem::NotWorkbook;
    }
    const quint16 version = biffU16(cursor.data(), 0);
    if ((version != kBiff8 && version != kBiff5) || biffU16(cursor.data(), 2) != kGlobalsType)
        return BiffProblem::NotWorkbook;
    globals.biff8 = version == kBiff8;
    return std::nullopt;
}

// The first sheet's offset and its name (unicode in Excel 97, code-page bytes before).
void readBoundSheet(QByteArrayView d, bool biff8, Globals& globals, QByteArray& rawName)
{
    if (d.size() < 7)
        return;
    if (biff8) {
        const BiffContinuedData data{d.sliced(6).toByteArray(), {}};
        auto name = BiffTextReader(data).unicodeString(true);
        if (!name)
            return;
        globals.sheetName = std::move(*name);
    } else {
        rawName = d.sliced(7, std::min<qsizetype>(quint8(d[6]), d.size() - 7)).toByteArray();
    }
    globals.sheetOffset = biffU32(d, 0);
}

std::variant<Globals, BiffProblem> readGlobals(QByteArrayView stream)
{
    BiffRecordCursor cursor(stream);
    Globals globals;
    if (const auto problem = readVersion(cursor, globals))
        return *problem;
    QByteArray rawName;
    quint16 codePage = 1252;
    bool ended = false;
    while (!ended && cursor.next()) {
        ended = cursor.type() == kEof;
        if (cursor.type() == kBoundSheet && globals.sheetOffset < 0)
            readBoundSheet(cursor.data(), globals.biff8, globals, rawName);
        else if (cursor.type() == kCodePage && cursor.data().size() >= 2)
            codePage = biffU16(cursor.data(), 0);
        else if (cursor.type() == kSst && globals.biff8 && globals.strings.isEmpty())
            readSharedStrings(cursor.takeContinued(), globals.strings, globals.damage);
    }
    if (!ended && globals.damage.isEmpty())
        globals.damage = QStringLiteral("la parte general del libro está cortada");
    if (globals.sheetOffset < 0)
        return BiffProblem::NotWorkbook;
    if (!globals.biff8) {
        globals.codePage = BiffCodePage(codePage);
        globals.sheetName = globals.codePage.decode(rawName);
    }
    return globals;
}

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
    SheetReader(const Globals& globals, BiffSheetContent& sheet)
        : m_globals(globals), m_sheet(sheet)
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
                put(row, column, generalNumberText(rkValue(biffU32(d, 6))));
            break;
        case kNumber:
            if (d.size() >= 14)
                put(row, column, generalNumberText(biffF64(d, 6)));
            break;
        case kMulRk:
            for (qsizetype at = 4, c = column; at + 6 <= d.size() - 2; at += 6, ++c)
                put(row, quint32(c), generalNumberText(rkValue(biffU32(d, at + 2))));
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
            put(row, column, generalNumberText(biffF64(d, 6)));
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
    void put(quint32 row, quint32 column, const QString& text)
    {
        m_sheet.lastRow = std::max(m_sheet.lastRow, row + 1);
        m_lastSeen = std::max(m_lastSeen, row + 1);
        if (column >= kColumns || text.isEmpty())
            return;
        if (m_sheet.rows.size() <= qsizetype(row))
            m_sheet.rows.resize(row + 1);
        m_sheet.rows[row].field(int(column)) = text;
    }

    const Globals& m_globals;
    BiffSheetContent& m_sheet;
    quint32 m_lastSeen = 0; // the last row a cell or a ROW record was found in, from 1
};

} // namespace

std::variant<BiffSheetContent, BiffProblem> parseWorkbookStream(QByteArrayView stream)
{
    auto globals = readGlobals(stream);
    if (const auto* problem = std::get_if<BiffProblem>(&globals))
        return *problem;
    const Globals& g = std::get<Globals>(globals);
    BiffSheetContent sheet;
    sheet.name = g.sheetName;
    SheetReader(g, sheet).read(stream, g.sheetOffset);
    if (!g.damage.isEmpty())
        sheet.damage = g.damage;
    return sheet;
}

} // namespace nubo::database
