// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Outcome.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

namespace nubo::library {

// The library's database errors in Spanish: a damaged file, another program holding it, a full
// disk, or the driver's own words for anything else.
QString sqlReason(const QString& path, const QSqlError& error);

// Runs a statement with its values bound in order; the reason names the library's file.
[[nodiscard]] Outcome<> exec(QSqlQuery& query, const QString& path, const QString& sql,
                             const QVariantList& values = {});

// The library's tables, created when missing; a file of a newer layout is refused rather than
// changed.
[[nodiscard]] Outcome<> prepareSchema(QSqlDatabase& db, const QString& path);

// The trigram index over the rows' keys (table row_keys, rowid as in rows), when the SQLite in
// use has FTS5 with its trigram tokenizer (3.34 and later); without it questions scan the keys.
bool prepareTrigrams(QSqlDatabase& db);

} // namespace nubo::library
