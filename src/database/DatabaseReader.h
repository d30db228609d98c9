#pragma once

#include "database/CatalogueRecord.h"

#include <QList>
#include <QString>

#include <memory>

namespace nubo::database {

// Reads a catalogue database: its first user table (in name order) and the first four fields
// of every record as text, in file order. Works on a path: the reading library opens files by
// name only.
class DatabaseReader final
{
public:
    DatabaseReader();
    ~DatabaseReader();
    DatabaseReader(const DatabaseReader&) = delete;
    DatabaseReader& operator=(const DatabaseReader&) = delete;

    bool open(const QString& path);
    void close();

    QString tableName() const { return m_tableName; }
    QStringList fieldNames() const { return m_fieldNames; }
    // The record count the table definition states.
    qsizetype recordCount() const;
    // The next record in file order; false at the end.
    bool next(CatalogueRecord& record);
    QString errorString() const { return m_error; }

private:
    struct State;
    bool fail(const QString& message);

    std::unique_ptr<State> m_state;
    QString m_tableName;
    QStringList m_fieldNames;
    QString m_error;
};

// Whether the bytes start like a Jet database file (any engine version).
bool looksLikeJetDatabase(const QByteArray& head);

// A Jet text value's stored bytes as text: UTF-16, or the compressed form.
QString decodeJetText(const char* data, qsizetype size);

} // namespace nubo::database
