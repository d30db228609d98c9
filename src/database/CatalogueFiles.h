// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/DiscRecord.h"
#include "database/CatalogueRecord.h"
#include "database/SheetStyle.h"
#include "platform/Outcome.h"

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
    // Databases only: a stopped save ends with the record begun at the stop, stored empty, as
    // the list window's saves always have.
    bool stopLeavesEmptyRecord = false;
    // One record per disc, written to the "Discos" sheet or table.
    QList<core::DiscRecord> discs = {};
};

// The rows to save, read one at a time by index.
struct CatalogueRowSource
{
    qsizetype count = 0;
    std::function<CatalogueRecord(qsizetype)> row;
};

// The rows of a list, which must outlive the source.
CatalogueRowSource rowsOf(const QList<CatalogueRecord>& rows);

// Asked before each row is handled (0-based); false stops the loop after the rows so far.
using RowProgress = std::function<bool(qsizetype index)>;

// What a save tells its caller while it runs; every member may be left empty.
struct SaveHooks
{
    std::function<void(qsizetype count)> begun; // the file is open; count rows follow
    RowProgress beforeRow;
    // Asked once a stop is seen: true abandons the save, leaving the previous file as it was.
    std::function<bool()> discardOnStop;
};

// Where a failed save gave up: creating the file or starting the writer, writing a row, or
// completing the file.
enum class SaveStage { Open, Rows, Finish };

struct [[nodiscard]] SaveOutcome
{
    bool ok = false;
    bool stopped = false;
    bool discarded = false;  // stopped and abandoned: nothing written
    bool replacing = false;  // the target existed: a stop abandons the save and keeps that file
    qsizetype written = 0;   // list rows written (an empty record at a stop not counted)
    qsizetype shortened = 0; // detail and disc texts cut to what the format's field holds
    SaveStage failedAt = SaveStage::Open;
    QString reason; // the writer's or the file's own, when not ok
};

// Writes the rows to a new workbook or database chosen by the path's extension. A stopped
// save of a new file still leaves a complete file with the rows written; a stopped save over
// an existing file, and a failed or discarded one, leave the previous file byte for byte. Only
// a regular file (or a symlink to one) is replaced; the file is flushed, renamed over the
// target and the folder flushed, with the replaced file's owner and mode.
[[nodiscard]] SaveOutcome saveCatalogue(const QString& path, const CatalogueSaveOptions& options,
                                        const CatalogueRowSource& rows,
                                        const SaveHooks& hooks = {});
[[nodiscard]] SaveOutcome saveWorkbook(const QString& path, const CatalogueSaveOptions& options,
                                       const CatalogueRowSource& rows, const SaveHooks& hooks = {});
[[nodiscard]] SaveOutcome saveDatabase(const QString& path, const CatalogueSaveOptions& options,
                                       const CatalogueRowSource& rows, const SaveHooks& hooks = {});

// What a load tells its caller while it runs; row must be set, the others may be empty.
struct LoadHooks
{
    // The file is open: its first sheet's or its table's name, and the rows it announces (a
    // workbook's last row less the two header rows, which may be below zero for an empty sheet).
    std::function<void(const QString& name, qint64 rows)> opened;
    RowProgress beforeRow;
    std::function<void(CatalogueRecord&& record)> row; // each row the list takes, in order
    // The file's disc records, once, after its rows; not called for a file without them.
    std::function<void(QList<core::DiscRecord>&& discs)> discs = {};
};

struct [[nodiscard]] LoadOutcome
{
    bool ok = false;
    bool stopped = false;
    qsizetype added = 0;
    QString name;
    QString reason; // when not ok
    // The file read but is damaged: the rows before the damage were handed over (ok is true),
    // damage says what was found and declared how many rows the file states it holds.
    bool damaged = false;
    qint64 declared = 0;
    QString damage;
    // Values the rows' detail columns or the disc records held that are no value of their
    // column: left unknown, the rest of their rows kept.
    SkippedValues skipped = {};
};

// Reads a catalogue file's rows in the order the list appends them: a workbook's rows in sheet
// order without those whose first cell is empty, a database's records last first. A stopped
// load has handed over the rows read so far, and so has a damaged one. Only a regular file is
// read, and none larger than any catalogue can be.
[[nodiscard]] LoadOutcome readCatalogue(const QString& path, const LoadHooks& hooks);
[[nodiscard]] LoadOutcome readWorkbook(const QString& path, const LoadHooks& hooks);
[[nodiscard]] LoadOutcome readDatabase(const QString& path, const LoadHooks& hooks);
// The rows "nubo-cli scan" prints (NOMBRE, DIRECCION, ORIGEN, FORMATO and UNIDAD, tab-separated
// and backslash-escaped), in file order; blank lines are skipped. The name is the file's.
[[nodiscard]] LoadOutcome readScanTsv(const QString& path, const LoadHooks& hooks);
// A workbook or a database by its extension, any other file as a scan TSV.
[[nodiscard]] LoadOutcome readAnyCatalogue(const QString& path, const LoadHooks& hooks);

// A whole catalogue file read at once.
struct LoadedCatalogue
{
    QString name; // the workbook's first sheet or the database's table
    QList<CatalogueRecord> rows;
    QList<core::DiscRecord> discs = {};
    QString damage;       // empty unless the file is damaged: rows are then those read
    qint64 declared = 0;  // with damage: the rows the file states it holds
    QString skipped = {}; // empty unless values were skipped: skippedText's sentence
};

[[nodiscard]] Outcome<LoadedCatalogue> loadCatalogue(const QString& path);

// Which files a command reads: named files as they are, and below each named folder the
// catalogues in it and its subfolders (hidden ones too) in name order. withScanTsv also takes
// the scan's .tsv files.
QStringList cataloguesIn(const QStringList& named, bool withScanTsv);

// The damage of a load in one Spanish sentence with its counts ("El archivo X está dañado:
// se leyeron 35.159 filas de 60.000 (…)."), for the window and the command line.
QString damageText(const QString& path, const LoadOutcome& outcome);
// The texts a save cut short, in one Spanish sentence; empty when none were.
QString shortenedText(const SaveOutcome& outcome);

// The values a load skipped in one Spanish sentence with their count and columns, or an empty
// text when none was.
QString skippedText(const QString& path, const SkippedValues& skipped);

} // namespace nubo::database
