// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryIndex.h"

#include "catalogue/DetailKeyText.h"
#include "catalogue/FindWords.h"
#include "database/CatalogueFiles.h"
#include "library/LibrarySql.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QUuid>

#include <cstring>

namespace nubo::library {
namespace {

// The shortest word the trigram index can answer.
constexpr qsizetype kTrigram = 3;

const char* const kRowColumns =
    "c.path, r.nombre, r.direccion, r.origen, r.formato, r.size, r.modified, r.title, r.artist,"
    " r.album, r.genre, r.year, r.track, r.duration";

QString absolute(const QString& path)
{
    return QFileInfo(path).absoluteFilePath();
}

qint64 mtimeOf(const QFileInfo& info)
{
    return info.lastModified().toMSecsSinceEpoch();
}

catalogue::CatalogueRow rowAt(const QSqlQuery& query)
{
    catalogue::CatalogueRow row{query.value(1).toString(), query.value(2).toString(),
                                query.value(3).toString(), query.value(4).toString(),
                                catalogue::unknownDriveText()};
    core::FileDetails& d = row.details;
    d.size = query.value(5).toLongLong();
    d.modified = query.value(6).toLongLong();
    d.title = query.value(7).toString();
    d.artist = query.value(8).toString();
    d.album = query.value(9).toString();
    d.genre = query.value(10).toString();
    d.year = quint16(query.value(11).toUInt());
    d.track = quint16(query.value(12).toUInt());
    d.duration = query.value(13).toInt();
    return row;
}

// Texts every match must hold in its folded key: each word's own text. A word kept to FECHA is
// left to the full comparison, since dates are written in the local time of the moment.
QStringList neededTexts(const QString& words)
{
    QStringList needed;
    for (const QString& typed : words.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        QStringView text = typed;
        const qsizetype colon = typed.indexOf(QLatin1Char(':'));
        if (colon > 0) {
            const auto column = catalogue::FindWords::columnNamed(text.left(colon));
            if (column == catalogue::Column::Fecha)
                continue;
            if (column)
                text = text.mid(colon + 1);
        }
        const std::string folded = catalogue::FindWords::folded(text);
        if (!folded.empty())
            needed.append(QString::fromUtf8(folded.data(), qsizetype(folded.size())));
    }
    return needed;
}

QVariantList rowValues(qint64 id, const database::CatalogueRecord& r,
                       catalogue::DetailKeyText& numbers)
{
    const catalogue::CatalogueRow row{
        r.nombre, r.direccion, r.origen, r.formato, catalogue::unknownDriveText(), r.details};
    const std::string key = catalogue::FindWords::keyOf(row, numbers);
    const core::FileDetails& d = r.details;
    return {id,           r.nombre,   r.direccion,
            r.origen,     r.formato,  d.size,
            d.modified,   d.title,    d.artist,
            d.album,      d.genre,    int(d.year),
            int(d.track), d.duration, QString::fromUtf8(key.data(), qsizetype(key.size()))};
}

// The text's overlapping three-character pieces, each quoted as one term of the index: the
// index keeps no positions (detail none), so a word is asked as all its pieces and the full
// comparison drops rows that hold them apart.
QStringList trigramsOf(const QString& text)
{
    const QList<uint> chars = text.toUcs4();
    QStringList grams;
    for (qsizetype i = 0; i + kTrigram <= chars.size(); ++i) {
        QString gram =
            QString::fromUcs4(reinterpret_cast<const char32_t*>(chars.constData() + i), kTrigram);
        grams.append(QLatin1Char('"') + gram.replace(QLatin1Char('"'), QStringLiteral("\"\"")) +
                     QLatin1Char('"'));
    }
    grams.removeDuplicates();
    return grams;
}

} // namespace

QString LibraryIndex::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/nubo/biblioteca.sqlite");
}

LibraryIndex::LibraryIndex(QString path)
    : m_path(std::move(path)),
      m_connection(QStringLiteral("nubo-library-") + QUuid::createUuid().toString())
{
}

LibraryIndex::~LibraryIndex()
{
    if (m_db.isValid()) {
        m_db.close();
        m_db = QSqlDatabase();
        QSqlDatabase::removeDatabase(m_connection);
    }
}

Outcome<> LibraryIndex::open()
{
    if (!QDir().mkpath(QFileInfo(m_path).absolutePath()))
        return Failure{
            QStringLiteral("No se puede crear la carpeta de la biblioteca %1.").arg(m_path)};
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLITE")))
        return Failure{QStringLiteral("Falta el controlador SQLite de Qt (paquete "
                                      "libqt6sql6-sqlite): la biblioteca no se puede abrir.")};
    m_db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    m_db.setDatabaseName(m_path);
    if (!m_db.open())
        return Failure{sqlReason(m_path, m_db.lastError())};
    if (Outcome<> done = prepareSchema(m_db, m_path); !done)
        return done;
    m_trigrams = prepareTrigrams(m_db);
    return {};
}

Outcome<qint64> LibraryIndex::add(const QString& cataloguePath)
{
    // Immediate: a second writer waits for the first (busy timeout) instead of failing halfway.
    QSqlQuery query(m_db);
    if (Outcome<> begun = exec(query, m_path, QStringLiteral("BEGIN IMMEDIATE")); !begun)
        return Failure{begun.reason()};
    Outcome<qint64> added = replaceRows(absolute(cataloguePath));
    Outcome<> committed = added ? exec(query, m_path, QStringLiteral("COMMIT")) : Outcome<>();
    if (!added || !committed) {
        const QString reason = added ? committed.reason() : added.reason();
        (void)exec(query, m_path, QStringLiteral("ROLLBACK"));
        return Failure{reason};
    }
    return added;
}

Outcome<qint64> LibraryIndex::replaceRows(const QString& cataloguePath)
{
    const QFileInfo info(cataloguePath);
    Outcome<database::LoadedCatalogue> loaded = database::loadCatalogue(cataloguePath);
    if (!loaded)
        return Failure{
            QStringLiteral("No se puede leer %1: %2").arg(cataloguePath, loaded.reason())};
    const Outcome<qint64> id = emptiedCatalogue(info, loaded->name);
    if (!id)
        return id;
    if (Outcome<> done = insertRows(*id, *loaded); !done)
        return Failure{done.reason()};
    // Kept with the catalogue, so listing catalogues never counts the rows.
    const qint64 rows = loaded->rows.size();
    QSqlQuery query(m_db);
    if (Outcome<> done =
            exec(query, m_path, QStringLiteral("UPDATE catalogues SET rows = ? WHERE id = ?"),
                 {rows, *id});
        !done)
        return Failure{done.reason()};
    return rows;
}

Outcome<qint64> LibraryIndex::emptiedCatalogue(const QFileInfo& info, const QString& name)
{
    QSqlQuery query(m_db);
    const QString path = info.absoluteFilePath();
    if (Outcome<> done = exec(query, m_path,
                              QStringLiteral("INSERT INTO catalogues (path, size, mtime, name) "
                                             "VALUES (?, ?, ?, ?) ON CONFLICT(path) DO UPDATE SET "
                                             "size = excluded.size, mtime = excluded.mtime, "
                                             "name = excluded.name, missing = 0"),
                              {path, info.size(), mtimeOf(info), name});
        !done)
        return Failure{done.reason()};
    if (Outcome<> done =
            exec(query, m_path, QStringLiteral("SELECT id FROM catalogues WHERE path = ?"), {path});
        !done || !query.next())
        return Failure{done ? sqlReason(m_path, query.lastError()) : done.reason()};
    const qint64 id = query.value(0).toLongLong();
    for (const char* table :
         {"DELETE FROM row_keys WHERE rowid IN (SELECT rowid FROM rows WHERE "
          "catalogue = ?)",
          "DELETE FROM rows WHERE catalogue = ?", "DELETE FROM discs WHERE catalogue = ?"}) {
        if (!m_trigrams && std::strstr(table, "row_keys"))
            continue;
        if (Outcome<> done = exec(query, m_path, QString::fromLatin1(table), {id}); !done)
            return Failure{done.reason()};
    }
    return id;
}

Outcome<> LibraryIndex::insertRows(qint64 id, const database::LoadedCatalogue& loaded)
{
    QSqlQuery query(m_db);
    if (!query.prepare(QStringLiteral("INSERT INTO rows VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
                                      "?, ?, ?, ?)")))
        return Failure{sqlReason(m_path, query.lastError())};
    QSqlQuery trigrams(m_db);
    if (m_trigrams &&
        !trigrams.prepare(QStringLiteral("INSERT INTO row_keys (rowid, key) VALUES (?, ?)")))
        return Failure{sqlReason(m_path, trigrams.lastError())};
    catalogue::DetailKeyText numbers;
    for (const database::CatalogueRecord& record : loaded.rows) {
        const QVariantList values = rowValues(id, record, numbers);
        for (int i = 0; i < values.size(); ++i)
            query.bindValue(i, values.at(i));
        if (!query.exec())
            return Failure{sqlReason(m_path, query.lastError())};
        if (!m_trigrams)
            continue;
        trigrams.bindValue(0, query.lastInsertId());
        trigrams.bindValue(1, values.last());
        if (!trigrams.exec())
            return Failure{sqlReason(m_path, trigrams.lastError())};
    }
    for (const core::DiscRecord& disc : loaded.discs) {
        QVariantList values{id};
        for (int field = 0; field < core::kDiscFieldCount; ++field)
            values.append(disc.text(core::DiscField(field)));
        if (Outcome<> done = exec(query, m_path,
                                  QStringLiteral("INSERT INTO discs VALUES (?, ?, ?, ?, ?, ?, ?, "
                                                 "?, ?, ?, ?, ?)"),
                                  values);
            !done)
            return done;
    }
    return {};
}

Outcome<bool> LibraryIndex::remove(const QString& cataloguePath)
{
    QSqlQuery query(m_db);
    const QString path = absolute(cataloguePath);
    if (Outcome<> begun = exec(query, m_path, QStringLiteral("BEGIN IMMEDIATE")); !begun)
        return Failure{begun.reason()};
    Outcome<> done = m_trigrams ? exec(query, m_path,
                                       QStringLiteral("DELETE FROM row_keys WHERE rowid IN (SELECT "
                                                      "r.rowid FROM rows r JOIN catalogues c ON "
                                                      "c.id = r.catalogue WHERE c.path = ?)"),
                                       {path})
                                : Outcome<>();
    if (done)
        done = exec(query, m_path, QStringLiteral("DELETE FROM catalogues WHERE path = ?"), {path});
    const bool removed = done && query.numRowsAffected() > 0;
    if (done)
        done = exec(query, m_path, QStringLiteral("COMMIT"));
    if (!done) {
        (void)exec(query, m_path, QStringLiteral("ROLLBACK"));
        return Failure{done.reason()};
    }
    return removed;
}

Outcome<RefreshReport> LibraryIndex::rebuild()
{
    RefreshReport report;
    if (Outcome<> done = refreshEach(true, report); !done)
        return Failure{done.reason()};
    return report;
}

Outcome<RefreshReport> LibraryIndex::refreshStale()
{
    RefreshReport report;
    if (Outcome<> done = refreshEach(false, report); !done)
        return Failure{done.reason()};
    return report;
}

Outcome<> LibraryIndex::refreshEach(bool all, RefreshReport& report)
{
    Outcome<QList<LibraryCatalogue>> held = catalogues();
    if (!held)
        return Failure{held.reason()};
    QSqlQuery query(m_db);
    for (const LibraryCatalogue& known : held.value()) {
        const QFileInfo info(known.path);
        if (!info.exists()) {
            if (!known.missing) {
                if (Outcome<> done =
                        exec(query, m_path,
                             QStringLiteral("UPDATE catalogues SET missing = 1 WHERE path = ?"),
                             {known.path});
                    !done)
                    return done;
            }
            report.missing.append(known.path);
            continue;
        }
        if (!all && !known.missing && info.size() == known.size && mtimeOf(info) == known.mtime)
            continue;
        const Outcome<qint64> added = add(known.path);
        if (added)
            report.reread.append(known.path);
        else
            report.unreadable.append(added.reason());
    }
    return {};
}

Outcome<QList<LibraryCatalogue>> LibraryIndex::catalogues()
{
    QSqlQuery query(m_db);
    if (Outcome<> done = exec(query, m_path,
                              QStringLiteral("SELECT path, name, size, mtime, missing, rows FROM "
                                             "catalogues ORDER BY path"));
        !done)
        return Failure{done.reason()};
    QList<LibraryCatalogue> held;
    while (query.next())
        held.append({query.value(0).toString(), query.value(1).toString(),
                     query.value(2).toLongLong(), query.value(3).toLongLong(),
                     query.value(4).toBool(), query.value(5).toLongLong()});
    return held;
}

Outcome<QList<core::DiscRecord>> LibraryIndex::discs(const QString& cataloguePath)
{
    QSqlQuery query(m_db);
    if (Outcome<> done = exec(query, m_path,
                              QStringLiteral("SELECT d.* FROM discs d JOIN catalogues c ON c.id = "
                                             "d.catalogue WHERE c.path = ? ORDER BY d.rowid"),
                              {absolute(cataloguePath)});
        !done)
        return Failure{done.reason()};
    QList<core::DiscRecord> found;
    while (query.next()) {
        core::DiscRecord disc;
        for (int field = 0; field < core::kDiscFieldCount; ++field)
            (void)disc.setText(core::DiscField(field), query.value(field + 1).toString());
        found.append(disc);
    }
    return found;
}

Outcome<qint64> LibraryIndex::find(const QString& words, const RowVisitor& visit)
{
    const catalogue::FindWords parsed(words);
    QString where;
    QVariantList values;
    QStringList phrases;
    for (const QString& text : neededTexts(words)) {
        // The trigram index answers words of three characters or more; shorter ones are sought
        // in the keys themselves.
        if (const QStringList grams = trigramsOf(text); m_trigrams && !grams.isEmpty()) {
            phrases += grams;
            continue;
        }
        where += QStringLiteral(" AND instr(r.key, ?) > 0");
        values.append(text);
    }
    if (!phrases.isEmpty()) {
        where +=
            QStringLiteral(" AND r.rowid IN (SELECT rowid FROM row_keys WHERE row_keys MATCH ?)");
        values.append(phrases.join(QStringLiteral(" AND ")));
    }
    catalogue::DetailKeyText numbers;
    return visitRows(
        where, values,
        [&](const catalogue::CatalogueRow& row) {
            return parsed.matches(catalogue::FindWords::keyOf(row, numbers));
        },
        visit);
}

Outcome<qint64> LibraryIndex::forEachRow(const RowVisitor& visit)
{
    return visitRows(
        {}, {}, [](const catalogue::CatalogueRow&) { return true; }, visit);
}

Outcome<qint64>
LibraryIndex::visitRows(const QString& where, const QVariantList& values,
                        const std::function<bool(const catalogue::CatalogueRow&)>& keep,
                        const RowVisitor& visit)
{
    QSqlQuery query(m_db);
    query.setForwardOnly(true);
    const QString sql =
        QStringLiteral("SELECT %1 FROM rows r JOIN catalogues c ON c.id = r.catalogue "
                       "WHERE 1%2 ORDER BY c.path, r.rowid")
            .arg(QString::fromLatin1(kRowColumns), where);
    if (Outcome<> done = exec(query, m_path, sql, values); !done)
        return Failure{done.reason()};
    qint64 count = 0;
    while (query.next()) {
        const catalogue::CatalogueRow row = rowAt(query);
        if (!keep(row))
            continue;
        ++count;
        visit(query.value(0).toString(), row);
    }
    if (query.lastError().isValid())
        return Failure{sqlReason(m_path, query.lastError())};
    return count;
}

} // namespace nubo::library
