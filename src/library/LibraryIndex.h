// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueRow.h"
#include "core/DiscRecord.h"
#include "platform/Outcome.h"

#include <QFileInfo>
#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

#include <functional>

namespace nubo::database {
struct LoadedCatalogue;
}

namespace nubo::library {

// One catalogue the library holds, as it was when last read.
struct LibraryCatalogue
{
    QString path;
    QString name; // the workbook's first sheet or the database's table
    qint64 size = 0;
    qint64 mtime = 0; // milliseconds since 1970-01-01 UTC
    bool missing = false;
    qint64 rows = 0;
};

// What bringing the library up to date did.
struct RefreshReport
{
    QStringList reread;     // catalogues read again
    QStringList missing;    // catalogues gone from their place (kept, marked missing)
    QStringList unreadable; // "path: reason" of those that could not be read
};

// The library: every catalogue added to it, its rows and its disc records, in one SQLite file
// others may read at the same time (write-ahead journal). The catalogue files are only ever
// read; the library can always be rebuilt from them.
class LibraryIndex final
{
public:
    using RowVisitor =
        std::function<void(const QString& catalogue, const catalogue::CatalogueRow&)>;

    // $XDG_DATA_HOME/nubo/biblioteca.sqlite.
    static QString defaultPath();

    explicit LibraryIndex(QString path);
    ~LibraryIndex();
    LibraryIndex(const LibraryIndex&) = delete;
    LibraryIndex& operator=(const LibraryIndex&) = delete;

    const QString& path() const { return m_path; }
    // Opens the file, creating it and its folder when missing.
    [[nodiscard]] Outcome<> open();

    // Reads the catalogue (any format) and puts its rows and discs in place of those it had,
    // all or nothing. Gives the rows read.
    [[nodiscard]] Outcome<qint64> add(const QString& cataloguePath);
    // Whether the catalogue was there.
    [[nodiscard]] Outcome<bool> remove(const QString& cataloguePath);
    // Reads every catalogue again.
    [[nodiscard]] Outcome<RefreshReport> rebuild();
    // Reads again the catalogues whose size or time changed and marks those gone as missing.
    [[nodiscard]] Outcome<RefreshReport> refreshStale();

    [[nodiscard]] Outcome<QList<LibraryCatalogue>> catalogues();
    [[nodiscard]] Outcome<QList<core::DiscRecord>> discs(const QString& cataloguePath);
    // The rows the words match, by the list window's find rules, catalogue by catalogue in
    // path order; gives their count. Call refreshStale first for an answer from the files as
    // they are.
    [[nodiscard]] Outcome<qint64> find(const QString& words, const RowVisitor& visit);
    // Every row, catalogue by catalogue in path order.
    [[nodiscard]] Outcome<qint64> forEachRow(const RowVisitor& visit);

private:
    [[nodiscard]] Outcome<qint64> replaceRows(const QString& cataloguePath);
    // The catalogue's id, its facts brought up to date and its rows and discs dropped.
    [[nodiscard]] Outcome<qint64> emptiedCatalogue(const QFileInfo& info, const QString& name);
    [[nodiscard]] Outcome<> insertRows(qint64 id, const database::LoadedCatalogue& loaded);
    [[nodiscard]] Outcome<> refreshEach(bool all, RefreshReport& report);
    [[nodiscard]] Outcome<qint64>
    visitRows(const QString& where, const QVariantList& values,
              const std::function<bool(const catalogue::CatalogueRow&)>& keep,
              const RowVisitor& visit);

    QString m_path;
    QString m_connection;
    QSqlDatabase m_db;
    bool m_trigrams = false; // the SQLite in use has FTS5's trigram tokenizer
};

} // namespace nubo::library
