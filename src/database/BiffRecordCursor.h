// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <optional>

namespace nubo::database {

// Little-endian reads from bytes that may be cut short: a read past the end gives 0.
quint16 biffU16(QByteArrayView data, qsizetype at);
quint32 biffU32(QByteArrayView data, qsizetype at);
double biffF64(QByteArrayView data, qsizetype at);

// A record's data together with the data of the continuation records that follow it, and where
// each continuation starts: texts that cross one start again with an encoding byte.
struct BiffContinuedData
{
    QByteArray bytes;
    QList<qsizetype> boundaries;
};

// Walks the records of a workbook stream. A record whose stated length runs past the end of
// the stream ends the walk, so damaged streams never read out of bounds.
class BiffRecordCursor final
{
public:
    explicit BiffRecordCursor(QByteArrayView stream, qsizetype from = 0)
        : m_stream(stream), m_next(from)
    {
    }

    bool next();
    quint16 type() const { return m_type; }
    // Where the current record starts in the stream.
    qsizetype position() const { return m_at; }
    QByteArrayView data() const { return m_data; }
    // The current record with its continuation records; the cursor moves past them.
    BiffContinuedData takeContinued();

private:
    QByteArrayView m_stream;
    qsizetype m_next = 0;
    qsizetype m_at = 0;
    quint16 m_type = 0;
    QByteArrayView m_data;
};

// Reads texts and numbers from continued data. Character runs that reach a continuation
// boundary resume after its encoding byte; other fields simply carry on across it.
class BiffTextReader final
{
public:
    explicit BiffTextReader(const BiffContinuedData& data) : m_data(data) {}

    bool atEnd() const { return m_pos >= m_data.bytes.size(); }
    std::optional<quint32> u8();
    std::optional<quint32> u16();
    std::optional<quint32> u32();
    bool skip(qint64 count);
    // A text with a two-byte (or one-byte) character count, its encoding byte, optional rich
    // runs and extension data.
    std::optional<QString> unicodeString(bool shortCount = false);

private:
    qsizetype nextBoundary() const;
    std::optional<QString> readChars(quint32 count, bool wide);

    const BiffContinuedData& m_data;
    qsizetype m_pos = 0;
};

} // namespace nubo::database
