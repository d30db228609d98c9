// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BiffStrings.h"

#include "database/ByteSink.h"

namespace nubo::database {
namespace {

constexpr qsizetype kMaxRecordData = 8224;
constexpr quint16 kSst = 0x00FC;
constexpr quint16 kContinue = 0x003C;
constexpr quint16 kExtSst = 0x00FF;

// Builds the table record by record, starting a continuation record whenever one is full.
class SstBuilder final
{
public:
    explicit SstBuilder(QByteArray& stream) : m_stream(stream) {}

    void header(quint32 total, quint32 unique)
    {
        ByteSink sink(m_record);
        sink.u32(total);
        sink.u32(unique);
    }
    // Returns the stream position of the string's first byte and its offset in its record.
    std::pair<quint32, quint16> addString(const QString& text)
    {
        const bool wide = !fitsLatin1(text);
        const int charSize = wide ? 2 : 1;
        if (room() < 3 + (text.isEmpty() ? 0 : charSize))
            flush();
        const auto position = std::make_pair(quint32(m_stream.size() + 4 + m_record.size()),
                                             quint16(4 + m_record.size()));
        ByteSink sink(m_record);
        sink.u16(quint32(text.size()));
        sink.u8(wide ? 1 : 0);
        qsizetype done = 0;
        while (done < text.size()) {
            qsizetype fit = std::min<qsizetype>(room() / charSize, text.size() - done);
            if (fit > 0 && done + fit < text.size() && text.at(done + fit - 1).isHighSurrogate())
                --fit; // a surrogate pair never straddles two records
            appendChars(sink, text, done, fit, wide);
            done += fit;
            if (done < text.size()) {
                flush();
                ByteSink(m_record).u8(wide ? 1 : 0);
            }
        }
        return position;
    }
    void finish() { flush(); }

private:
    qsizetype room() const { return kMaxRecordData - m_record.size(); }
    void flush()
    {
        appendBiffRecord(m_stream, m_type, m_record);
        m_record.clear();
        m_type = kContinue;
    }
    static void appendChars(ByteSink& sink, const QString& text, qsizetype from, qsizetype count,
                            bool wide)
    {
        for (qsizetype i = from; i < from + count; ++i) {
            if (wide)
                sink.u16(text.at(i).unicode());
            else
                sink.u8(text.at(i).unicode());
        }
    }

    QByteArray& m_stream;
    QByteArray m_record;
    quint16 m_type = kSst;
};

} // namespace

bool fitsLatin1(const QString& text)
{
    for (const QChar c : text) {
        if (c.unicode() > 0xFF)
            return false;
    }
    return true;
}

namespace {

// The option byte and the characters, one byte each when every character fits Latin-1.
void appendFlaggedChars(ByteSink& sink, const QString& text)
{
    const bool wide = !fitsLatin1(text);
    sink.u8(wide ? 1 : 0);
    for (const QChar c : text) {
        if (wide)
            sink.u16(c.unicode());
        else
            sink.u8(c.unicode());
    }
}

} // namespace

void appendShortBiffString(ByteSink& sink, const QString& text)
{
    sink.u8(quint32(text.size()));
    appendFlaggedChars(sink, text);
}

void appendBiffString(ByteSink& sink, const QString& text)
{
    sink.u16(quint32(text.size()));
    appendFlaggedChars(sink, text);
}

void appendBiffRecord(QByteArray& stream, quint16 type, const QByteArray& data)
{
    ByteSink sink(stream);
    sink.u16(type);
    sink.u16(quint32(data.size()));
    sink.bytes(data);
}

quint32 BiffSharedStrings::add(const QString& text)
{
    ++m_total;
    const auto found = m_index.constFind(text);
    if (found != m_index.constEnd())
        return found.value();
    const auto index = quint32(m_strings.size());
    m_index.insert(text, index);
    m_strings.append(text);
    return index;
}

void BiffSharedStrings::appendRecords(QByteArray& stream) const
{
    const qsizetype count = m_strings.size();
    const qsizetype perBucket = std::max<qsizetype>(8, (count + 127) / 128);
    QByteArray index;
    ByteSink indexSink(index);
    indexSink.u16(quint32(perBucket));

    SstBuilder builder(stream);
    builder.header(m_total, quint32(count));
    for (qsizetype i = 0; i < count; ++i) {
        const auto [position, offset] = builder.addString(m_strings.at(i));
        if (i % perBucket == 0) {
            indexSink.u32(position);
            indexSink.u16(offset);
            indexSink.u16(0);
        }
    }
    builder.finish();
    appendBiffRecord(stream, kExtSst, index);
}

} // namespace nubo::database
