// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibrarySql.h"

#include <QSqlError>

namespace nubo::library {
namespace {

// The layout this program writes; files of a later one are left alone.
constexpr int kSchemaVersion = 1;

// SQLite's primary result codes (sqlite3.h), the low byte of its extended codes.
constexpr int kSqliteBusy = 5;
constexpr int kSqliteLocked = 6;
constexpr int kSqliteReadOnly = 8;
constexpr int kSqliteCorrupt = 11;
constexpr int kSqliteFull = 13;
constexpr int kSqliteCantOpen = 14;
constexpr int kSqliteNotADatabase = 26;
constexpr int kPrimaryCodeMask = 0xff;

const char* const kTables[] = {
    "CREATE TABLE IF NOT EXISTS schema_version (version INTEGER NOT NULL)",
    "CREATE TABLE IF NOT EXISTS catalogues (id INTEGER PRIMARY KEY, path TEXT NOT NULL UNIQUE,"
    " size INTEGER NOT NULL, mtime INTEGER NOT NULL, name TEXT NOT NULL,"
    " missing INTEGER NOT NULL DEFAULT 0, rows INTEGER NOT NULL DEFAULT 0)",
    "CREATE TABLE IF NOT EXISTS discs (catalogue INTEGER NOT NULL REFERENCES catalogues(id)"
    " ON DELETE CASCADE, origen TEXT, etiqueta TEXT, serie TEXT, sistema TEXT, capacidad TEXT,"
    " libre TEXT, fecha TEXT, carpeta TEXT, mascara TEXT, ubicacion TEXT, notas TEXT)",
    "CREATE TABLE IF NOT EXISTS rows (catalogue INTEGER NOT NULL REFERENCES catalogues(id)"
    " ON DELETE CASCADE, nombre TEXT, direccion TEXT, origen TEXT, formato TEXT, size INTEGER,"
    " modified INTEGER, title TEXT, artist TEXT, album TEXT, genre TEXT, year INTEGER,"
    " track INTEGER, duration INTEGER, key TEXT NOT NULL)",
    "CREATE INDEX IF NOT EXISTS rows_catalogue ON rows(catalogue)",
    "CREATE INDEX IF NOT EXISTS discs_catalogue ON discs(catalogue)",
};

} // namespace

QString sqlReason(const QString& path, const QSqlError& error)
{
    const int code = error.nativeErrorCode().toInt() & kPrimaryCodeMask;
    switch (code) {
    case kSqliteCorrupt:
    case kSqliteNotADatabase:
        return QStringLiteral("La biblioteca %1 está dañada o no es una biblioteca: bórrela y "
                              "vuelva a añadir los catálogos (ellos no han cambiado).")
            .arg(path);
    case kSqliteBusy:
    case kSqliteLocked:
        return QStringLiteral("La biblioteca %1 está ocupada por otro programa: inténtelo de "
                              "nuevo dentro de un momento.")
            .arg(path);
    case kSqliteFull:
        return QStringLiteral("No queda espacio en el disco para la biblioteca %1.").arg(path);
    case kSqliteCantOpen:
    case kSqliteReadOnly:
        return QStringLiteral("No se puede abrir ni escribir la biblioteca %1.").arg(path);
    default:
        return QStringLiteral("Error en la biblioteca %1: %2").arg(path, error.text());
    }
}

Outcome<> exec(QSqlQuery& query, const QString& path, const QString& sql,
               const QVariantList& values)
{
    const bool prepared = query.prepare(sql);
    if (prepared) {
        for (const QVariant& value : values)
            query.addBindValue(value);
    }
    if (!prepared || !query.exec())
        return Failure{sqlReason(path, query.lastError())};
    return {};
}

Outcome<> prepareSchema(QSqlDatabase& db, const QString& path)
{
    QSqlQuery query(db);
    // A busy file is waited for a while before a question gives up. With the write-ahead
    // journal, synchronous NORMAL keeps the file whole; a power cut may lose the last catalogue
    // added, which adding again restores.
    for (const char* pragma : {"PRAGMA busy_timeout = 5000", "PRAGMA journal_mode = WAL",
                               "PRAGMA synchronous = NORMAL", "PRAGMA foreign_keys = ON"}) {
        if (Outcome<> done = exec(query, path, QString::fromLatin1(pragma)); !done)
            return done;
    }
    for (const char* table : kTables) {
        if (Outcome<> done = exec(query, path, QString::fromLatin1(table)); !done)
            return done;
    }
    if (Outcome<> done =
            exec(query, path, QStringLiteral("SELECT max(version) FROM schema_version"));
        !done)
        return done;
    const QVariant version = query.next() ? query.value(0) : QVariant();
    if (version.isNull())
        return exec(query, path, QStringLiteral("INSERT INTO schema_version VALUES (?)"),
                    {kSchemaVersion});
    if (version.toInt() > kSchemaVersion)
        return Failure{
            QStringLiteral("La biblioteca %1 es de una versión más nueva del programa.").arg(path)};
    return {};
}

bool prepareTrigrams(QSqlDatabase& db)
{
    QSqlQuery query(db);
    return query.exec(QStringLiteral("CREATE VIRTUAL TABLE IF NOT EXISTS row_keys USING "
                                     "fts5(key, tokenize = 'trigram', detail = 'none')"));
}

} // namespace nubo::library
