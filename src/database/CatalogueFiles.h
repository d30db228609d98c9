#pragma once

#include "database/CatalogueRecord.h"
#include "database/SheetStyle.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace nubo::database {

enum class CatalogueFormat { Workbook, Database };

// The format a path names by its last three characters ("xls" or "mdb", in any case).
std::optional<CatalogueFormat> catalogueFormatOf(const QString& path);

// Everything a saved catalogue holds apart from its rows.
struct CatalogueSaveOptions
{
    CatalogueHeader header = defaultCatalogueHeader();
    QString sheetName = QStringLiteral("Colección");
    std::optional<SheetStyle> style; // workbooks only
};

// The rows to save, read one at a time by index.
struct CatalogueRowSource
{
    qsizetype count = 0;
    std::function<CatalogueRecord(qsizetype)> row;
};

// Told before each row is written (0-based) and once more with the total at the end;
// returning false stops the save after the rows written so far.
using SaveProgress = std::function<bool(qsizetype written)>;

struct SaveOutcome
{
    bool ok = false;
    bool stopped = false;
    qsizetype written = 0;
    QString error;
};

// Writes the rows to a new workbook or database chosen by the path's extension. A stopped
// save still leaves a complete file with the rows written; a failed one leaves the previous
// file untouched.
SaveOutcome saveCatalogue(const QString& path, const CatalogueSaveOptions& options,
                          const CatalogueRowSource& rows, const SaveProgress& progress = {});

// A catalogue file's rows in the order the list appends them: a workbook's rows in sheet
// order without those whose first cell is empty, a database's records last first.
struct LoadedCatalogue
{
    QString name; // the workbook's first sheet or the database's table
    QList<CatalogueRecord> rows;
};

std::optional<LoadedCatalogue> loadCatalogue(const QString& path, QString* error);

} // namespace nubo::database
