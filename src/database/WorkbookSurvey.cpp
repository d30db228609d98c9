// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/WorkbookSurvey.h"

#include "database/BiffCodePage.h"
#include "database/BiffRecordCursor.h"
#include "database/CompoundFile.h"
#include "database/SheetCaptions.h"

#include <QFile>

#include <map>

namespace nubo::database {
namespace {

// Record types ([MS-XLS] 2.3) this survey looks at.
constexpr quint16 kBof = 0x0809;
constexpr quint16 kEof = 0x000A;
constexpr quint16 kBoundSheet = 0x0085;
constexpr quint16 kSst = 0x00FC;
constexpr quint16 kLabelSst = 0x00FD;
constexpr quint16 kLabel = 0x0204;
constexpr quint16 kRString = 0x00D6;
constexpr quint16 kRk = 0x027E;
constexpr quint16 kNumber = 0x0203;
constexpr quint16 kMulRk = 0x00BD;
constexpr quint16 kFormula = 0x0006;
constexpr quint16 kBoolErr = 0x0205;
constexpr quint16 kBiff8 = 0x0600;
constexpr int kStoredColumns = 4;

struct SheetEntry
{
    QString name;
    qsizetype offset = 0;
};

struct Globals
{
    bool biff8 = true;
    QList<SheetEntry> sheets;
    QList<QString> strings;
};

std::optional<QByteArray> workbookStream(const QByteArray& file)
{
    if (!looksLikeCompoundFile(file))
        return std::nullopt;
    if (auto stream = compoundFileStream(file, QStringLiteral("Workbook")))
        return stream;
    return compoundFileStream(file, QStringLiteral("Book"));
}

// BOUNDSHEET: the substream's offset, then (after the sheet's state and type) its name.
void readBoundSheet(QByteArrayView d, Globals& globals)
{
    if (d.size() < 7)
        return;
    QString name;
    if (globals.biff8) {
        const BiffContinuedData data{d.sliced(6).toByteArray(), {}};
        name = BiffTextReader(data).unicodeString(true).value_or(QString());
    } else {
        const qsizetype length = std::min<qsizetype>(quint8(d[6]), d.size() - 7);
        name = BiffCodePage(1252).decode(d.sliced(7, length));
    }
    globals.sheets.append({name, qsizetype(biffU32(d, 0))});
}

void readStrings(const BiffContinuedData& data, QList<QString>& strings)
{
    BiffTextReader reader(data);
    const auto total = reader.u32();
    const auto unique = reader.u32();
    if (!total || !unique)
        return;
    for (quint32 i = 0; i < *unique; ++i) {
        auto text = reader.unicodeString();
        if (!text)
            return;
        strings.append(std::move(*text));
    }
}

std::optional<Globals> readGlobals(QByteArrayView stream)
{
    BiffRecordCursor cursor(stream);
    if (!cursor.next() || cursor.type() != kBof)
        return std::nullopt;
    Globals globals;
    globals.biff8 = biffU16(cursor.data(), 0) == kBiff8;
    while (cursor.next() && cursor.type() != kEof) {
        if (cursor.type() == kBoundSheet)
            readBoundSheet(cursor.data(), globals);
        else if (cursor.type() == kSst && globals.biff8 && globals.strings.isEmpty())
            readStrings(cursor.takeContinued(), globals.strings);
    }
    return globals;
}

// The columns of one sheet that hold a value, each with its row-1 text.
class SheetCells final
{
public:
    SheetCells(const Globals& globals, QByteArrayView stream, qsizetype from)
    {
        BiffRecordCursor cursor(stream, from);
        if (!cursor.next() || cursor.type() != kBof)
            return;
        int depth = 0; // embedded charts are skipped whole
        while (cursor.next()) {
            if (cursor.type() == kBof)
                ++depth;
            else if (cursor.type() == kEof && depth-- == 0)
                break;
            else if (depth == 0)
                take(globals, cursor.type(), cursor.data());
        }
    }

    bool isEmpty() const { return m_columns.empty(); }
    const std::map<int, QString>& columns() const { return m_columns; }

private:
    void take(const Globals& globals, quint16 type, QByteArrayView d)
    {
        if (d.size() < 6)
            return;
        const quint16 row = biffU16(d, 0);
        const quint16 column = biffU16(d, 2);
        switch (type) {
        case kLabelSst: {
            const quint32 index = biffU32(d, 6);
            mark(column, row == 0 ? globals.strings.value(index) : QString());
            break;
        }
        case kLabel:
        case kRString:
            mark(column, row == 0 && globals.biff8 ? labelText(d) : QString());
            break;
        case kMulRk:
            for (int c = column; c <= int(biffU16(d, d.size() - 2)) && c < column + 256; ++c)
                mark(c, {});
            break;
        case kRk:
        case kNumber:
        case kFormula:
        case kBoolErr:
            mark(column, {});
            break;
        default:
            break;
        }
    }
    static QString labelText(QByteArrayView d)
    {
        const BiffContinuedData text{d.sliced(6).toByteArray(), {}};
        return BiffTextReader(text).unicodeString().value_or(QString());
    }
    void mark(int column, const QString& caption)
    {
        QString& kept = m_columns[column];
        if (kept.isEmpty())
            kept = caption;
    }

    std::map<int, QString> m_columns;
};

} // namespace

std::optional<WorkbookExtras> surveyWorkbookBytes(const QByteArray& file)
{
    const std::optional<QByteArray> stream = workbookStream(file);
    if (!stream)
        return std::nullopt;
    const std::optional<Globals> globals = readGlobals(*stream);
    if (!globals || globals->sheets.isEmpty())
        return std::nullopt;
    WorkbookExtras extras;
    const SheetCells first(*globals, *stream, globals->sheets.first().offset);
    // The detail columns and the disc records' sheet are written again by a save.
    for (const auto& [column, caption] : first.columns()) {
        if (column >= kStoredColumns && !detailFieldNamed(caption))
            extras.columns.append({column + 1, caption});
    }
    for (qsizetype s = 1; s < globals->sheets.size(); ++s) {
        const SheetEntry& sheet = globals->sheets.at(s);
        const bool discs = sheet.name.compare(discsSheetNameBeside(globals->sheets.first().name),
                                              Qt::CaseInsensitive) == 0;
        if (!discs && !SheetCells(*globals, *stream, sheet.offset).isEmpty())
            extras.sheets.append(sheet.name);
    }
    return extras;
}

std::optional<WorkbookExtras> surveyWorkbook(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return surveyWorkbookBytes(file.readAll());
}

} // namespace nubo::database
