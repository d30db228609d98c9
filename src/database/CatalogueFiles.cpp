#include "database/CatalogueFiles.h"

#include "database/DatabaseReader.h"
#include "database/DatabaseWriter.h"
#include "database/WorkbookReader.h"
#include "database/WorkbookWriter.h"

#include <QSaveFile>

namespace nubo::database {
namespace {

// Feeds the rows to a writer until they run out or progress says stop.
template <typename Writer>
bool feedRows(Writer& writer, const CatalogueRowSource& rows, const SaveProgress& progress,
              SaveOutcome& outcome)
{
    for (qsizetype i = 0; i < rows.count; ++i) {
        if (progress && !progress(i)) {
            outcome.stopped = true;
            break;
        }
        if (!writer.addRow(rows.row(i)))
            return false;
        ++outcome.written;
    }
    if (progress && !outcome.stopped)
        progress(rows.count);
    return true;
}

SaveOutcome saveWorkbook(const QString& path, const CatalogueSaveOptions& options,
                         const CatalogueRowSource& rows, const SaveProgress& progress)
{
    SaveOutcome outcome;
    WorkbookWriter writer;
    WorkbookLayout layout{options.sheetName, options.header, options.style};
    const bool written =
        writer.begin(path, layout, rows.count) && feedRows(writer, rows, progress, outcome);
    if (written && outcome.stopped)
        writer.dropStyle();
    if (!written || !writer.finish()) {
        outcome.error = writer.errorString();
        return outcome;
    }
    outcome.ok = true;
    return outcome;
}

SaveOutcome saveDatabase(const QString& path, const CatalogueSaveOptions& options,
                         const CatalogueRowSource& rows, const SaveProgress& progress)
{
    SaveOutcome outcome;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        outcome.error =
            QStringLiteral("No se puede crear el archivo %1: %2").arg(path, file.errorString());
        return outcome;
    }
    DatabaseWriter writer;
    if (!writer.begin(&file, options.header) || !feedRows(writer, rows, progress, outcome) ||
        !writer.finish()) {
        outcome.error = writer.errorString();
        file.cancelWriting();
        return outcome;
    }
    if (!file.commit()) {
        outcome.error =
            QStringLiteral("No se puede escribir el archivo %1: %2").arg(path, file.errorString());
        return outcome;
    }
    outcome.ok = true;
    return outcome;
}

std::optional<LoadedCatalogue> loadWorkbook(const QString& path, QString* error)
{
    WorkbookReader reader;
    if (!reader.open(path)) {
        *error = reader.errorString();
        return std::nullopt;
    }
    LoadedCatalogue loaded{reader.sheetName(), {}};
    for (quint32 r = 3; r <= reader.lastRow(); ++r) {
        CatalogueRecord record = reader.record(r);
        if (!record.nombre.isEmpty()) // rows without a name are skipped, as the list does
            loaded.rows.append(std::move(record));
    }
    return loaded;
}

std::optional<LoadedCatalogue> loadDatabase(const QString& path, QString* error)
{
    DatabaseReader reader;
    if (!reader.open(path)) {
        *error = reader.errorString();
        return std::nullopt;
    }
    LoadedCatalogue loaded{reader.tableName(), {}};
    CatalogueRecord record;
    while (reader.next(record))
        loaded.rows.append(record);
    std::reverse(loaded.rows.begin(), loaded.rows.end()); // the list takes the last record first
    return loaded;
}

} // namespace

std::optional<CatalogueFormat> catalogueFormatOf(const QString& path)
{
    const QString tail = path.right(3);
    if (tail.compare(QLatin1String("xls"), Qt::CaseInsensitive) == 0)
        return CatalogueFormat::Workbook;
    if (tail.compare(QLatin1String("mdb"), Qt::CaseInsensitive) == 0)
        return CatalogueFormat::Database;
    return std::nullopt;
}

SaveOutcome saveCatalogue(const QString& path, const CatalogueSaveOptions& options,
                          const CatalogueRowSource& rows, const SaveProgress& progress)
{
    const auto format = catalogueFormatOf(path);
    if (!format) {
        SaveOutcome outcome;
        outcome.error = QStringLiteral("%1 no termina en .xls ni en .mdb.").arg(path);
        return outcome;
    }
    return *format == CatalogueFormat::Workbook ? saveWorkbook(path, options, rows, progress)
                                                : saveDatabase(path, options, rows, progress);
}

std::optional<LoadedCatalogue> loadCatalogue(const QString& path, QString* error)
{
    const auto format = catalogueFormatOf(path);
    if (!format) {
        *error = QStringLiteral("%1 no termina en .xls ni en .mdb.").arg(path);
        return std::nullopt;
    }
    return *format == CatalogueFormat::Workbook ? loadWorkbook(path, error)
                                                : loadDatabase(path, error);
}

} // namespace nubo::database
