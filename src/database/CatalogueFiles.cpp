// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/CatalogueFiles.h"

#include "database/AtomicSaveFile.h"
#include "database/DatabaseReader.h"
#include "database/DatabaseWriter.h"
#include "database/SourceFile.h"
#include "database/WorkbookReader.h"
#include "database/WorkbookWriter.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace nubo::database {
namespace {

SaveOutcome saveFailed(SaveOutcome outcome, SaveStage stage, const QString& error)
{
    outcome.ok = false;
    outcome.failedAt = stage;
    outcome.reason = error;
    return outcome;
}

// The one row loop of every save: feeds the rows to a writer until they run out or the
// progress hook says stop. Fails when the writer refused a row.
template <typename Writer>
Outcome<> feedRows(Writer& writer, const CatalogueRowSource& rows, const SaveHooks& hooks,
                   SaveOutcome& outcome)
{
    if (hooks.begun)
        hooks.begun(rows.count);
    for (qsizetype i = 0; i < rows.count; ++i) {
        if (hooks.beforeRow && !hooks.beforeRow(i)) {
            outcome.stopped = true;
            outcome.discarded = outcome.replacing || (hooks.discardOnStop && hooks.discardOnStop());
            return {};
        }
        if (auto added = writer.addRow(rows.row(i)); !added)
            return added;
        ++outcome.written;
    }
    return {};
}

LoadOutcome loadFailed(const QString& error)
{
    LoadOutcome outcome;
    outcome.reason = error;
    return outcome;
}

void markDamaged(LoadOutcome& outcome, const QString& damage, qint64 declared)
{
    outcome.damaged = true;
    outcome.damage = damage;
    outcome.declared = std::max<qint64>(declared, 0);
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
    if (auto begun = writer.begin(
            path, {options.sheetName, options.header, options.style, options.discs}, rows.count);
        !begun)
        return saveFailed(outcome, SaveStage::Open, begun.reason());
    AtomicSaveFile file(path);
    if (auto opened = file.open(); !opened)
        return saveFailed(outcome, SaveStage::Open, opened.reason());
    outcome.replacing = file.replacesFile();
    if (auto fed = feedRows(writer, rows, hooks, outcome); !fed)
        return saveFailed(outcome, SaveStage::Rows, fed.reason());
    if (outcome.discarded)
        return outcome;
    if (outcome.stopped)
        writer.dropStyle(); // a stopped save is still written, unstyled
    if (auto finished = writer.finish(*file.device()); !finished)
        return saveFailed(outcome, SaveStage::Finish, finished.reason());
    if (auto committed = file.commit(); !committed)
        return saveFailed(outcome, SaveStage::Finish, committed.reason());
    outcome.ok = true;
    return outcome;
}

// Written into an unnamed file beside the target and put in its place only once complete; a
// failed or discarded save leaves nothing.
SaveOutcome saveDatabase(const QString& path, const CatalogueSaveOptions& options,
                         const CatalogueRowSource& rows, const SaveHooks& hooks)
{
    SaveOutcome outcome;
    AtomicSaveFile file(path);
    DatabaseWriter writer;
    if (auto opened = file.open(); !opened)
        return saveFailed(outcome, SaveStage::Open, opened.reason());
    outcome.replacing = file.replacesFile();
    if (auto begun = writer.begin(file.device(), options.header, options.discs); !begun)
        return saveFailed(outcome, SaveStage::Open, begun.reason());
    if (auto fed = feedRows(writer, rows, hooks, outcome); !fed)
        return saveFailed(outcome, SaveStage::Rows, fed.reason());
    if (outcome.discarded)
        return outcome;
    if (outcome.stopped && options.stopLeavesEmptyRecord) {
        if (auto added = writer.addRow({}); !added)
            return saveFailed(outcome, SaveStage::Rows, added.reason());
    }
    if (auto finished = writer.finish(); !finished)
        return saveFailed(outcome, SaveStage::Finish, finished.reason());
    if (auto committed = file.commit(); !committed)
        return saveFailed(outcome, SaveStage::Finish, committed.reason());
    outcome.ok = true;
    outcome.shortened = writer.shortened();
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
    if (auto opened = reader.open(path); !opened)
        return loadFailed(opened.reason());
    LoadOutcome outcome;
    outcome.ok = true;
    outcome.name = reader.sheetName();
    const qint64 lastRow = reader.lastRow();
    if (hooks.opened)
        hooks.opened(outcome.name, lastRow - 2);
    for (qint64 r = 3; r <= lastRow && goOn(hooks, r - 3, outcome); ++r) {
        SkippedValues skipped;
        CatalogueRecord record = reader.record(quint32(r), &skipped);
        if (record.nombre.isEmpty()) // rows without a name are skipped silently
            continue;
        outcome.skipped.merge(skipped);
        hooks.row(std::move(record));
        ++outcome.added;
    }
    // Records of groups no row has are kept: they cost nothing and may hold what the user typed.
    if (reader.hasDiscs() && hooks.discs)
        hooks.discs(reader.discs(&outcome.skipped));
    if (const QString damage = reader.damage(); !damage.isEmpty())
        markDamaged(outcome, damage, qint64(reader.declaredLastRow()) - 2);
    return outcome;
}

// Records are handed over last first, an order that is intended and kept; they are read from
// the file's end, so none waits in memory.
LoadOutcome readDatabase(const QString& path, const LoadHooks& hooks)
{
    DatabaseReader reader;
    if (auto opened = reader.open(path); !opened)
        return loadFailed(opened.reason());
    LoadOutcome outcome;
    outcome.ok = true;
    outcome.name = reader.tableName();
    if (hooks.opened)
        hooks.opened(outcome.name, reader.liveRecords());
    reader.forEachRecord(
        [&](CatalogueRecord&& record) {
            if (!goOn(hooks, outcome.added, outcome))
                return false;
            hooks.row(std::move(record));
            ++outcome.added;
            return true;
        },
        DatabaseReader::Order::LastFirstOnce);
    if (reader.hasDiscs() && hooks.discs)
        hooks.discs(reader.discs());
    outcome.skipped = reader.skipped();
    if (const QString damage = reader.damage(); !damage.isEmpty())
        markDamaged(outcome, damage, reader.recordCount());
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
    const Outcome<QByteArray> source = readSourceFile(path);
    if (!source)
        return loadFailed(source.reason());
    const QString text = QString::fromUtf8(*source);
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
        // The detail columns are a line's last nine, after the five texts and any tag columns;
        // a text that is no value of its field leaves the field empty.
        if (const qsizetype first = fields.size() - core::kDetailFieldCount; first >= 5) {
            for (int f = 0; f < core::kDetailFieldCount; ++f)
                (void)record.details.setText(static_cast<core::DetailField>(f),
                                             unescaped(fields[first + f]));
        }
        hooks.row(std::move(record));
        ++outcome.added;
    }
    return outcome;
}

LoadOutcome readAnyCatalogue(const QString& path, const LoadHooks& hooks)
{
    return catalogueFormatOf(path) ? readCatalogue(path, hooks) : readScanTsv(path, hooks);
}

Outcome<LoadedCatalogue> loadCatalogue(const QString& path)
{
    LoadedCatalogue loaded;
    const LoadOutcome outcome = readCatalogue(
        path, {{},
               {},
               [&loaded](CatalogueRecord&& r) { loaded.rows.append(std::move(r)); },
               [&loaded](QList<core::DiscRecord>&& d) { loaded.discs = std::move(d); }});
    if (!outcome.ok)
        return Failure{outcome.reason};
    loaded.name = outcome.name;
    loaded.skipped = skippedText(path, outcome.skipped);
    if (outcome.damaged) {
        loaded.damage = damageText(path, outcome);
        loaded.declared = outcome.declared;
    }
    return loaded;
}

QString skippedText(const QString& path, const SkippedValues& skipped)
{
    if (skipped.count == 0)
        return {};
    const QString columns = skipped.columns.join(QStringLiteral(", "));
    if (skipped.count == 1)
        return QStringLiteral("El archivo %1 tiene 1 valor que no se pudo leer y se dejó vacío "
                              "(columna %2).")
            .arg(path, columns);
    return QStringLiteral("El archivo %1 tiene %2 valores que no se pudieron leer y se dejaron "
                          "vacíos (%3 %4).")
        .arg(path, QLocale(QLocale::Spanish, QLocale::Spain).toString(qint64(skipped.count)),
             skipped.columns.size() == 1 ? QStringLiteral("columna") : QStringLiteral("columnas"),
             columns);
}

QString damageText(const QString& path, const LoadOutcome& outcome)
{
    const QLocale spanish(QLocale::Spanish, QLocale::Spain);
    QString read = spanish.toString(qint64(outcome.added));
    QString declared = spanish.toString(outcome.declared);
    // The Spanish convention leaves four-digit numbers ungrouped; the counts always group.
    for (QString* number : {&read, &declared}) {
        if (number->size() == 4)
            number->insert(1, QLatin1Char('.'));
    }
    // A count the file states below what was read tells nothing: only the rows read are given.
    if (outcome.declared <= qint64(outcome.added))
        return QStringLiteral("El archivo %1 está dañado: se leyeron %2 filas (%3).")
            .arg(path, read, outcome.damage);
    return QStringLiteral("El archivo %1 está dañado: se leyeron %2 filas de %3 (%4).")
        .arg(path, read, declared, outcome.damage);
}

QString shortenedText(const SaveOutcome& outcome)
{
    if (outcome.shortened <= 0)
        return {};
    if (outcome.shortened == 1)
        return QStringLiteral("Se acortó 1 texto de etiqueta o de disco a %1 caracteres.")
            .arg(DatabaseWriter::kMaxText);
    return QStringLiteral("Se acortaron %1 textos de etiquetas o de discos a %2 caracteres.")
        .arg(QLocale(QLocale::Spanish, QLocale::Spain).toString(qint64(outcome.shortened)))
        .arg(DatabaseWriter::kMaxText);
}

QStringList cataloguesIn(const QStringList& named, bool withScanTsv)
{
    const auto isCatalogue = [withScanTsv](const QString& name) {
        return catalogueFormatOf(name) ||
               (withScanTsv && name.endsWith(QLatin1String(".tsv"), Qt::CaseInsensitive));
    };
    QStringList files;
    for (const QString& path : named) {
        if (!QFileInfo(path).isDir()) {
            files.append(path);
            continue;
        }
        QStringList found;
        QDirIterator it(path, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString file = it.next();
            if (isCatalogue(file))
                found.append(file);
        }
        std::sort(found.begin(), found.end());
        files += found;
    }
    return files;
}

} // namespace nubo::database
