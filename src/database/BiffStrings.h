// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

namespace nubo::database {

class ByteSink;

// Workbook text encoding: 8-bit when every character fits, UTF-16 otherwise.
void appendShortBiffString(ByteSink& sink, const QString& text); // one-byte length
void appendBiffString(ByteSink& sink, const QString& text);      // two-byte length
bool fitsLatin1(const QString& text);

// Appends one workbook record (type, length, data) to a stream.
void appendBiffRecord(QByteArray& stream, quint16 type, const QByteArray& data);

// The workbook's shared strings: each distinct text once, in order of first use.
class BiffSharedStrings final
{
public:
    quint32 add(const QString& text);

    // Appends the table (split into continuation records) and its lookup index to a stream
    // whose byte 0 is the start of the workbook stream.
    void appendRecords(QByteArray& stream) const;

private:
    QHash<QString, quint32> m_index;
    QList<QString> m_strings;
    quint32 m_total = 0;
};

} // namespace nubo::database
