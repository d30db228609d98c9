// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/CatalogueFiles.h"

#include "database/DatabaseReader.h"
#include "database/DatabaseWriter.h"
#include "database/WorkbookReader.h"
#include "database/WorkbookWriter.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace nubo::database {
namespace {

SaveOutcome saveFailed(SaveOutcome outcome, SaveStage stage, const QString& error)
{
    outcome.ok = false;
    outcome.failedAt = stage;
    outcome.error = error;
    return outcome;
}

// The one row loop of every save: feeds the rows to a writer until they run out or the
// progress hook says stop. False when the writer refused a row.
template <typename Writer>
bool feedRows(Writer& writer, const CatalogueRowSource& rows, const SaveHooks& hooks,
              SaveOutcome& outcome)
{
    if (hooks.begun)
        hooks.begun(rows.count);
    for (qsizetype i = 0; i < rows.count; ++i) {
        if (hooks.beforeRow && !hooks.beforeRow(i)) {
            outcome.stopped = true;
            outcome.discarded = hooks.discardOnStop && hooks.discardOnStop();
            return true;
        }
        if (!writer.addRow(rows.row(i)))
            return false;
        ++outcome.written;
    }
    return true;
}

LoadOutcome loadFailed(const QString& error)
{
    LoadOutcome outcome;
    outcome.error = error;
    return outcome;
}

// Asks the progress hook before handing over row index; false once it says stop.
bool goOn(const LoadHooks& hooks, qsizetype index, LoadOutcome& outcome)
{
    outcome.stopped = hooks.beforeRow && !hooks.beforeRow(index);
    return !outcome.stopped;
}

// A scan TSV field with its escapes undone.
QString unescaped(QStringView field)
{
    if (!field.contains(QLatin1Char('\\')))
        return field.toString();
    QString out;
    out.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        const QChar c = field[i];
        if (c != QLatin1Char('\\') || i + 1 == field.size()) {
            out += c;
            continue;
        }
        const QChar next = field[++i];
        out += next == QLatin1Char('t')   ? QChar(u'\t')
               : next == QLatin1Char('n') ? QChar(u'\n')
               : next == QLatin1Char('r') ? QChar(u'\r')
                                          : next;
    }
    return out;
}

} // namespace

CatalogueRowSource rowsOf(const QList<CatalogueRecord>& rows)
{
    return {rows.size(), [&rows](qsizetype i) { return rows[i]; }};
}

std::optional<CatalogueFormat> catalogueFormatOf(const QString& path)
{
    const QString tail = path.right(3);
    if (tail.compare(QLatin1String("xls"), Qt::CaseInsensitive) == 0)
        return CatalogueFormat::Workbook;
    if (tail.compare(QLatin1String("mdb"), Qt::CaseInsensitive) == 0)
        return CatalogueFormat::Database;
    return std::nullopt;
}

// A workbook is built in memory and written by finish(), so a discarded save writes nothing.
SaveOutcome saveWorkbook(const QString& path, const CatalogueSaveOptions& options,
                         const CatalogueRowSource& rows, const SaveHooks& hooks)
{
    SaveOutcome outcome;
    WorkbookWriter writer;
    if (!writer.begin(path, {options.sheetName, options.header, options.style}, rows.count))
        return saveFailed(outcome, SaveStage::Open, writer.errorString());
    if (!feedRows(writer, rows, hooks, outcome))
        return saveFailed(outcome, SaveStage::Rows, writer.errorString());
    if (outcome.discarded)
        return outcome;
    if (outcome.stopped)
        writer.dropStyle(); // a stopped save is still written, unstyled
    if (!writer.finish())
        return saveFailed(outcome, SaveStage::Finish, writer.errorString());
    outcome.ok = true;
    return outcome;
}

// Written beside the target and renamed over it only once complete; a failed or discarded
// save drops the temporary file.
SaveOutcome saveDatabase(const QString& path, const CatalogueSaveOptions& options,
                         const CatalogueRowSource& rows, const SaveHooks& hooks)
{
    SaveOutcome outcome;
    QSaveFile file(path);
    DatabaseWriter writer;
    if (!file.open(QIODevice::WriteOnly))
        return saveFailed(outcome, SaveStage::Open, file.errorString());
    if (!writer.begin(&file, options.header))
        return saveFailed(outcome, SaveStage::Open, writer.errorString());
    if (!feedRows(writer, rows, hooks, outcome))
        return saveFailed(outcome, SaveStage::Rows, writer.errorString());
    if (outcome.discarded)
        return outcome;
    if (outcome.stopped && options.stopLeavesEmptyRecord && !writer.addRow({}))
        return saveFailed(outcome, SaveStage::Rows, writer.errorString());
    if (!writer.finish())
        return saveFailed(outcome, SaveStage::Finish, writer.errorString());
    if (!file.commit())
        return saveFailed(outcome, SaveStage::Finish, file.errorString());
    outcome.ok = true;
    return outcome;
}

SaveOutcome saveCatalogue(const QString& path, const CatalogueSaveOptions& options,
                          const CatalogueRowSource& rows, const SaveHooks& hooks)
{
    const auto format = catalogueFormatOf(path);
    if (!format)
        return saveFailed({}, SaveStage::Open,
                          QStringLiteral("%1 no termina en .xls ni en .mdb.").arg(path));
    return *format == CatalogueFormat::Workbook ? saveWorkbook(path, options, rows, hooks)
                                                : saveDatabase(path, options, rows, hooks);
}

LoadOutcome readWorkbook(const QString& path, const LoadHooks& hooks)
{
    WorkbookReader reader;
    if (!reader.open(path))
        return loadFailed(reader.errorString());
    LoadOutcome outcome;
    outcome.ok = true;
    outcome.name = reader.sheetName();
    const qint64 lastRow = reader.lastRow();
    if (hooks.opened)
        hooks.opened(outcome.name, lastRow - 2);
    for (qint64 r = 3; r <= lastRow && goOn(hooks, r - 3, outcome); ++r) {
        CatalogueRecord record = reader.record(quint32(r));
        if (record.nombre.isEmpty()) // rows without a name are skipped silently
            continue;
        hooks.row(std::move(record));
        ++outcome.added;
    }
    return outcome;
}

// Every record is read before the first is handed over: the last record first, an order that
// is intended and kept.
LoadOutcome readDatabase(const QString& path, const LoadHooks& hooks)
{
    DatabaseReader reader;
    if (!reader.open(path))
        return loadFailed(reader.errorString());
    QList<CatalogueRecord> records = reader.takeRecords();
    LoadOutcome outcome;
    outcome.ok = true;
    outcome.name = reader.tableName();
    if (hooks.opened)
        hooks.opened(outcome.name, records.size());
    for (qsizetype k = records.size() - 1; k >= 0 && goOn(hooks, outcome.added, outcome); --k) {
        hooks.row(std::move(records[k]));
        ++outcome.added;
    }
    return outcome;
}

LoadOutcome readCatalogue(const QString& path, const LoadHooks& hooks)
{
    const auto format = catalogueFormatOf(path);
    if (!format)
        return loadFailed(QStringLiteral("%1 no termina en .xls ni en .mdb.").arg(path));
    return *format == CatalogueFormat::Workbook ? readWorkbook(path, hooks)
                                                : readDatabase(path, hooks);
}

LoadOutcome readScanTsv(const QString& path, const LoadHooks& hooks)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return loadFailed(file.errorString());
    const QString text = QString::fromUtf8(file.readAll());
    LoadOutcome outcome;
    outcome.ok = true;
    outcome.name = QFileInfo(path).completeBaseName();
    const auto lines = QStringView(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    if (hooks.opened)
        hooks.opened(outcome.name, lines.size());
    for (QStringView line : lines) {
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        if (line.isEmpty())
            continue;
        if (!goOn(hooks, outcome.added, outcome))
            break;
        const auto fields = line.split(QLatin1Char('\t'));
        CatalogueRecord record;
        for (int f = 0; f < 4 && f < fields.size(); ++f)
            record.field(f) = unescaped(fields[f]);
        hooks.row(std::move(record));
        ++outcome.added;
    }
    return outcome;
}

LoadOutcome readAnyCatalogue(const QString& path, const LoadHooks& hooks)
{
    return catalogueFormatOf(path) ? readCatalogue(path, hooks) : readScanTsv(path, hooks);
}

std::optional<LoadedCatalogue> loadCatalogue(const QString& path, QString* error)
{
    LoadedCatalogue loaded;
    const LoadOutcome outcome = readCatalogue(
        path, {{}, {}, [&loaded](CatalogueRecord&& r) { loaded.rows.append(std::move(r)); }});
    if (!outcome.ok) {
        *error = outcome.error;
        return std::nullopt;
    }
    loaded.name = outcome.name;
    return loaded;
}

} // namespace nubo::database
