// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/DiscRecord.h"
#include "database/CatalogueRecord.h"
#include "database/JetCatalogueTables.h"
#include "database/JetPages.h"
#include "database/JetSchema.h"
#include "platform/Outcome.h"

#include <QIODevice>

namespace nubo::database {

// Writes a catalogue database, row by row: a Jet 4 file holding the table "Catalogo" (four text
// fields named after the column captions, then the file details, JetCatalogueTables.h) and the
// table of discs. Data pages go to the device as they fill; the discs' pages and the catalogue
// pages at the front are written by finish(), which may follow any row.
class DatabaseWriter final
{
public:
    static constexpr qsizetype kMaxText = jet::kMaxFieldText;
    static QString tableName() { return QStringLiteral("Catalogo"); }

    // The device must be open for writing and seekable; it is written from its start.
    // After a failure, every later call fails with the same reason.
    [[nodiscard]] Outcome<> begin(QIODevice* device, const CatalogueHeader& header,
                                  const QList<core::DiscRecord>& discs = {});
    [[nodiscard]] Outcome<> addRow(const CatalogueRecord& record);
    [[nodiscard]] Outcome<> finish();

    qsizetype rowCount() const { return m_rows; }
    // Detail and disc texts longer than a field holds, stored cut to kMaxText characters.
    qsizetype shortened() const { return m_shortened; }

private:
    Failure fail(const QString& message);
    Outcome<> writePage(const QByteArray& page);
    Outcome<> flushDataPage();
    Outcome<> writeDiscs(QList<quint32>& pages);

    QIODevice* m_device = nullptr;
    jet::Table m_table;
    jet::RowLayout m_layout;
    jet::Table m_discsTable;
    QList<core::DiscRecord> m_discs;
    std::optional<jet::DataPage> m_page;
    quint32 m_nextPage = 0;
    qsizetype m_rows = 0;
    qsizetype m_shortened = 0;
    LocalDateTexts m_dates;
    QString m_error; // the first failure's reason
};

// A field name the database engine accepts.
bool isValidFieldName(const QString& name);

} // namespace nubo::database
