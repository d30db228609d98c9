// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BiffWorkbookParser.h"

#include "database/BiffCodePage.h"
#include "database/BiffRecordCursor.h"
#include "database/BiffSheetReader.h"

namespace nubo::database {
namespace {

constexpr quint16 kBof = 0x0809;
constexpr quint16 kBof2 = 0x0009;
constexpr quint16 kBof3 = 0x0209;
constexpr quint16 kBof4 = 0x0409;
constexpr quint16 kCodePage = 0x0042;
constexpr quint16 kEof = 0x000A;
constexpr quint16 kBoundSheet = 0x0085;
constexpr quint16 kSst = 0x00FC;
constexpr quint16 kBiff8 = 0x0600;
constexpr quint16 kBiff5 = 0x0500;
constexpr quint16 kGlobalsType = 0x0005;
constexpr quint32 kTextColumns = 4; // the first sheet's columns A to D are read as text

// What the globals hold beyond what a sheet's cells need: every sheet's name and offset.
struct Globals : BiffGlobals
{
    QList<QString> sheetNames;
    QList<QByteArray> rawNames; // before Excel 97: the names' bytes, decoded once the code
                                // page is known
    QList<qsizetype> sheetOffsets;
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

// A sheet's offset and its name (unicode in Excel 97, code-page bytes before).
void readBoundSheet(QByteArrayView d, Globals& globals)
{
    if (d.size() < 7)
        return;
    if (globals.biff8) {
        const BiffContinuedData data{d.sliced(6).toByteArray(), {}};
        auto name = BiffTextReader(data).unicodeString(true);
        if (!name)
            return;
        globals.sheetNames.append(std::move(*name));
    } else {
        globals.rawNames.append(
            d.sliced(7, std::min<qsizetype>(quint8(d[6]), d.size() - 7)).toByteArray());
    }
    globals.sheetOffsets.append(biffU32(d, 0));
}

std::variant<Globals, BiffProblem> readGlobals(QByteArrayView stream)
{
    BiffRecordCursor cursor(stream);
    Globals globals;
    if (const auto problem = readVersion(cursor, globals))
        return *problem;
    quint16 codePage = 1252;
    bool ended = false;
    while (!ended && cursor.next()) {
        ended = cursor.type() == kEof;
        if (cursor.type() == kBoundSheet)
            readBoundSheet(cursor.data(), globals);
        else if (cursor.type() == kCodePage && cursor.data().size() >= 2)
            codePage = biffU16(cursor.data(), 0);
        else if (cursor.type() == kSst && globals.biff8 && globals.strings.isEmpty())
            readSharedStrings(cursor.takeContinued(), globals.strings, globals.damage);
    }
    if (!ended && globals.damage.isEmpty())
        globals.damage = QStringLiteral("la parte general del libro está cortada");
    if (globals.sheetOffsets.isEmpty())
        return BiffProblem::NotWorkbook;
    if (!globals.biff8) {
        globals.codePage = BiffCodePage(codePage);
        for (const QByteArray& raw : std::as_const(globals.rawNames))
            globals.sheetNames.append(globals.codePage.decode(raw));
    }
    return globals;
}

} // namespace

std::variant<BiffSheetContent, BiffProblem>
parseWorkbookStream(QByteArrayView stream, const std::function<bool(const QString&)>& wanted)
{
    auto globals = readGlobals(stream);
    if (const auto* problem = std::get_if<BiffProblem>(&globals))
        return *problem;
    const Globals& g = std::get<Globals>(globals);
    BiffSheetContent sheet;
    sheet.name = g.sheetNames.first();
    readBiffSheet(g, stream, g.sheetOffsets.first(), kTextColumns, sheet);
    if (!g.damage.isEmpty())
        sheet.damage = g.damage;
    for (qsizetype s = 1; wanted && s < g.sheetNames.size(); ++s) {
        if (!wanted(g.sheetNames.at(s)))
            continue;
        BiffSheetContent other;
        readBiffSheet(g, stream, g.sheetOffsets.at(s), 0, other);
        sheet.named = BiffValueSheet{g.sheetNames.at(s), std::move(other.values), other.damage};
        break;
    }
    return sheet;
}

} // namespace nubo::database
