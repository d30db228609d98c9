// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/CatalogueRecord.h"
#include "platform/Outcome.h"

#include <QList>
#include <QString>

#include <optional>

namespace nubo::database {

// Reads a catalogue database (Jet 4): its first user table (in name order) and the first four
// fields of every record as text, in file order. Any bytes give records or an error.
class DatabaseReader final
{
public:
    [[nodiscard]] Outcome<> open(const QString& path);
    // Reads a whole file held in memory; the name only goes into error messages.
    [[nodiscard]] Outcome<> read(const QByteArray& file, const QString& name);
    void close();

    QString tableName() const { return m_tableName; }
    QStringList fieldNames() const { return m_fieldNames; }
    // The record count the table definition states.
    qsizetype recordCount() const { return m_recordCount; }
    // Empty when the table read whole; otherwise what is damaged (the records found still read).
    QString damage() const { return m_damage; }
    // The next record in file order; none at the end.
    std::optional<CatalogueRecord> next();
    // Every record not yet read, in file order, handed over without a copy.
    QList<CatalogueRecord> takeRecords();

private:
    Failure fail(const QString& message);
    void checkWhole(qsizetype fileSize);

    QList<CatalogueRecord> m_rows;
    qsizetype m_next = 0;
    qsizetype m_recordCount = 0;
    QString m_tableName;
    QStringList m_fieldNames;
    QString m_damage;
};

// Whether the bytes start like a Jet database file (any engine version).
bool looksLikeJetDatabase(const QByteArray& head);

// A Jet text value's stored bytes as text: UTF-16, or the compressed form.
QString decodeJetText(const char* data, qsizetype size);

} // namespace nubo::database
