// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/WorkbookReader.h"

#include "database/CompoundFile.h"
#include "database/SheetCaptions.h"
#include "database/SourceFile.h"

#include <QDate>
#include <QTime>

#include <algorithm>
#include <cmath>

namespace nubo::database {

void WorkbookReader::close()
{
    m_sheet = {};
    m_detailColumns.clear();
    m_discColumns.clear();
}

Failure WorkbookReader::fail(const QString& message)
{
    close();
    return {message};
}

Outcome<> WorkbookReader::open(const QString& path)
{
    close();
    Outcome<QByteArray> source = readSourceFile(path);
    if (!source)
        return fail(source.reason());
    return read(source.value(), path);
}

namespace {

// The workbook stream: "Workbook" since Excel 97, "Book" before, in any case; a file that is not
// a compound file is taken as a bare stream, as Excel 2 to 4 wrote them.
std::optional<QByteArray> workbookStream(const QByteArray& file)
{
    if (!looksLikeCompoundFile(file))
        return file;
    if (auto stream = compoundFileStream(file, QStringLiteral("Workbook")))
        return stream;
    return compoundFileStream(file, QStringLiteral("Book"));
}

QString problemText(BiffProblem problem, const QString& name)
{
    const QString older = QStringLiteral("%1 es un libro de Excel %2, anterior a Excel 5: guárdelo "
                                         "como libro de Excel 97-2003.");
    switch (problem) {
    case BiffProblem::Excel2:
        return older.arg(name, QStringLiteral("2"));
    case BiffProblem::Excel3:
        return older.arg(name, QStringLiteral("3"));
    case BiffProblem::Excel4:
        return older.arg(name, QStringLiteral("4"));
    case BiffProblem::NotWorkbook:
        break;
    }
    return QStringLiteral("%1 no es un libro de Excel.").arg(name);
}

// A number a spreadsheet holds as the whole number it is, or nothing when it has a fraction.
std::optional<QString> wholeNumberText(double number)
{
    if (!std::isfinite(number) || number != std::floor(number) || std::fabs(number) > 9.0e15)
        return std::nullopt;
    return QString::number(qint64(number));
}

// A date cell: days since 1899-12-30, the time of day as the fraction, on the wall clock.
std::optional<QString> serialDateText(double days)
{
    constexpr double kLastDay = 2958466; // 10000-01-01
    if (!std::isfinite(days) || days < 1 || days >= kLastDay)
        return std::nullopt;
    const auto whole = qint64(std::floor(days));
    const auto seconds = qint64(std::llround((days - double(whole)) * 86400));
    const QDate date = QDate(1899, 12, 30).addDays(whole + seconds / 86400);
    return date.toString(QStringLiteral("yyyy-MM-dd ")) +
           QTime(0, 0).addSecs(int(seconds % 86400)).toString(QStringLiteral("hh:mm"));
}

// A length typed as a number: whole seconds, or with a fraction a time of day (what a
// spreadsheet makes of "0:03:45").
std::optional<QString> durationNumberText(double number)
{
    if (!std::isfinite(number) || number < 0 || number > 1e8)
        return std::nullopt;
    if (number == std::floor(number))
        return QString::number(qint64(number));
    return QString::number(std::llround(number * 86400));
}

// The text setText takes for a detail cell; nothing when a number is no value of the field.
std::optional<QString> detailText(core::DetailField field, const BiffValue& value)
{
    if (!value.isNumber)
        return value.text;
    switch (field) {
    case core::DetailField::Tamano:
    case core::DetailField::Ano:
    case core::DetailField::Pista:
        return wholeNumberText(value.number);
    case core::DetailField::Fecha:
        return serialDateText(value.number);
    case core::DetailField::Duracion:
        return durationNumberText(value.number);
    default:
        return generalNumberText(value.number);
    }
}

std::optional<QString> discText(core::DiscField field, const BiffValue& value)
{
    if (!value.isNumber)
        return value.text;
    switch (field) {
    case core::DiscField::Capacidad:
    case core::DiscField::Libre:
        return wholeNumberText(value.number);
    case core::DiscField::Fecha:
        return serialDateText(value.number);
    default:
        return generalNumberText(value.number);
    }
}

const BiffValue* valueAt(const BiffValueRow& row, quint16 column)
{
    for (const BiffValue& value : row) {
        if (value.column == column)
            return &value;
    }
    return nullptr;
}

bool holdsText(const CatalogueRecord& record)
{
    for (int c = 0; c < 4; ++c) {
        if (!record.field(c).isEmpty())
            return true;
    }
    return false;
}

} // namespace

Outcome<> WorkbookReader::read(const QByteArray& file, const QString& name)
{
    close();
    const std::optional<QByteArray> stream = workbookStream(file);
    if (!stream)
        return fail(problemText(BiffProblem::NotWorkbook, name));
    auto parsed = parseWorkbookStream(*stream, isDiscsSheetName);
    if (const auto* problem = std::get_if<BiffProblem>(&parsed))
        return fail(problemText(*problem, name));
    m_sheet = std::move(std::get<BiffSheetContent>(parsed));
    // Catalogues leave row 2 empty and start their data at row 3; a sheet from another program
    // with data in row 2 has its rows from 2 on moved down one, so that row is read too.
    if (m_sheet.rows.size() > 1 && holdsText(m_sheet.rows.at(1))) {
        m_sheet.rows.insert(1, CatalogueRecord{});
        if (m_sheet.values.size() > 1)
            m_sheet.values.insert(1, BiffValueRow{});
        ++m_sheet.lastRow;
        if (m_sheet.declaredLastRow > 0)
            ++m_sheet.declaredLastRow;
    }
    // A damaged disc sheet could hide records a save over the file would lose: it is told as
    // the file's damage.
    if (m_sheet.named && !m_sheet.named->damage.isEmpty() && m_sheet.damage.isEmpty())
        m_sheet.damage = QStringLiteral("la hoja %1 está dañada: %2")
                             .arg(m_sheet.named->name, m_sheet.named->damage);
    findColumns();
    return {};
}

// The first column after D with a caption names its field; columns of other captions, and a
// caption's later columns, are not read.
void WorkbookReader::findColumns()
{
    for (const BiffValue& cell : m_sheet.values.value(0)) {
        const auto field = cell.isNumber ? std::nullopt : detailFieldNamed(cell.text);
        if (field && std::none_of(m_detailColumns.begin(), m_detailColumns.end(),
                                  [&](const auto& found) { return found.second == *field; }))
            m_detailColumns.append({cell.column, *field});
    }
    if (!m_sheet.named)
        return;
    for (const BiffValue& cell : m_sheet.named->rows.value(0)) {
        const auto field = cell.isNumber ? std::nullopt : discFieldNamed(cell.text);
        if (field && std::none_of(m_discColumns.begin(), m_discColumns.end(),
                                  [&](const auto& found) { return found.second == *field; }))
            m_discColumns.append({cell.column, *field});
    }
}

CatalogueRecord WorkbookReader::record(quint32 row, SkippedValues* skipped) const
{
    if (row == 0 || row > quint32(m_sheet.rows.size()))
        return {};
    CatalogueRecord record = m_sheet.rows.at(row - 1);
    if (row > quint32(m_sheet.values.size()))
        return record;
    const BiffValueRow& values = m_sheet.values.at(row - 1);
    for (const auto& [column, field] : m_detailColumns) {
        const BiffValue* value = valueAt(values, column);
        if (!value)
            continue;
        const std::optional<QString> text = detailText(field, *value);
        if (text && field == core::DetailField::Fecha) {
            if (const auto seconds = m_dates.fromText(*text)) { // the written layout, fast
                record.details.modified = *seconds;
                continue;
            }
        }
        if ((!text || !record.details.setText(field, *text)) && skipped)
            skipped->add(core::detailCaptions().at(int(field)));
    }
    return record;
}

// Without an ORIGEN column no row can be given its group: each is skipped as a whole.
QList<core::DiscRecord> WorkbookReader::discs(SkippedValues* skipped) const
{
    QList<core::DiscRecord> records;
    if (!m_sheet.named)
        return records;
    const bool grouped = std::any_of(m_discColumns.begin(), m_discColumns.end(),
                                     [](auto& c) { return c.second == core::DiscField::Origen; });
    const QList<BiffValueRow>& rows = m_sheet.named->rows;
    for (qsizetype r = 1; r < rows.size(); ++r) {
        if (rows.at(r).isEmpty())
            continue;
        if (!grouped) {
            if (skipped)
                skipped->add(m_sheet.named->name);
            continue;
        }
        core::DiscRecord disc;
        bool held = false;
        for (const auto& [column, field] : m_discColumns) {
            const BiffValue* value = valueAt(rows.at(r), column);
            if (!value)
                continue;
            held = true;
            const std::optional<QString> text = discText(field, *value);
            if ((!text || !disc.setText(field, *text)) && skipped)
                skipped->add(core::discCaptions().at(int(field)));
        }
        if (held)
            records.append(std::move(disc));
    }
    return records;
}

} // namespace nubo::database
