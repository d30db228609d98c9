// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/DiscRecord.h"
#include "database/CatalogueRecord.h"
#include "database/JetFileReader.h"
#include "database/LocalDateTexts.h"
#include "platform/Outcome.h"

#include <QList>
#include <QString>

#include <array>
#include <functional>
#include <optional>

namespace nubo::database {

// Reads a catalogue database (Jet 4): the table "Catalogo" (else the first user table in name
// order), the first four fields of every record as text, and the file details from the fields
// named after their captions (in any case, with or without accents, in any order and place
// after the four); and the table of discs when there is one. Any bytes give records or an error.
class DatabaseReader final
{
public:
    [[nodiscard]] Outcome<> open(const QString& path);
    // Reads a whole file held in memory; the name only goes into error messages.
    [[nodiscard]] Outcome<> read(const QByteArray& file, const QString& name);
    void close();

    QString tableName() const { return m_tableName; }
    QStringList fieldNames() const { return m_fieldNames; }
    // The record count the table definition states, and the records the file holds.
    qsizetype recordCount() const { return m_recordCount; }
    qsizetype liveRecords() const { return m_liveRecords; }
    // Empty when the table read whole; otherwise what is damaged (the records found still read).
    QString damage() const { return m_damage; }

    // LastFirstOnce frees the file's pages as their records are handed over (a large file
    // then never sits in memory beside all its records); a later walk finds none of them.
    enum class Order { FileOrder, LastFirst, LastFirstOnce };
    // Hands each record to visit, which returns false to stop. Repeated texts are shared with
    // the record before. A detail value that is no value of its field is left unknown and
    // counted in skipped().
    void forEachRecord(const std::function<bool(CatalogueRecord&&)>& visit,
                       Order order = Order::FileOrder);
    // Values left out: detail and disc values that are none of their field, discs without ORIGEN.
    const SkippedValues& skipped() const { return m_skipped; }

    // Whether the file has a table of discs, and its records in file order.
    bool hasDiscs() const { return m_hasDiscs; }
    QList<core::DiscRecord> discs() const { return m_discs; }

private:
    Failure fail(const QString& message);
    Outcome<> readTables(const QString& name);
    // "Catalogo", else the first table by name.
    static std::pair<QString, quint32>
    chooseTable(const QList<std::pair<QString, quint32>>& tables);
    void checkWhole(qsizetype fileSize);
    void findDetailFields();
    void readDiscs(const jet::TableInfo& table);
    CatalogueRecord recordOf(const QList<QString>& values, const CatalogueRecord* before);

    std::optional<jet::JetFileReader> m_jet;
    std::optional<jet::TableInfo> m_table;
    int m_fields = 0;                                      // the list texts the table has
    std::array<int, core::kDetailFieldCount> m_detailAt{}; // column index, or -1
    qsizetype m_recordCount = 0;
    qsizetype m_liveRecords = 0;
    SkippedValues m_skipped;
    QString m_tableName;
    QStringList m_fieldNames;
    QString m_damage;
    bool m_hasDiscs = false;
    QList<core::DiscRecord> m_discs;
    LocalDateTexts m_dates;
};

// A field name as the reader matches it: without accents, case or surrounding blanks.
QString foldedFieldName(const QString& name);

// Whether the bytes start like a Jet database file (any engine version).
bool looksLikeJetDatabase(const QByteArray& head);

// A Jet text value's stored bytes as text: UTF-16, or the compressed form.
QString decodeJetText(const char* data, qsizetype size);

} // namespace nubo::database
