// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BiffRecordCursor.h"

#include <algorithm>
#include <cstring>

namespace nubo::database {
namespace {

constexpr quint16 kContinue = 0x003C;
constexpr quint32 kWideFlag = 0x01;
constexpr quint32 kExtendedFlag = 0x04;
constexpr quint32 kRichFlag = 0x08;

} // namespace

quint16 biffU16(QByteArrayView data, qsizetype at)
{
    if (at < 0 || at + 2 > data.size())
        return 0;
    return quint16(quint8(data[at]) | (quint8(data[at + 1]) << 8));
}

quint32 biffU32(QByteArrayView data, qsizetype at)
{
    if (at < 0 || at + 4 > data.size())
        return 0;
    return biffU16(data, at) | (quint32(biffU16(data, at + 2)) << 16);
}

double biffF64(QByteArrayView data, qsizetype at)
{
    const quint64 bits = biffU32(data, at) | (quint64(biffU32(data, at + 4)) << 32);
    double value = 0;
    static_assert(sizeof bits == sizeof value);
    memcpy(&value, &bits, sizeof value);
    return value;
}

bool BiffRecordCursor::next()
{
    if (m_next < 0 || m_next + 4 > m_stream.size())
        return false;
    const quint16 length = biffU16(m_stream, m_next + 2);
    if (m_next + 4 + length > m_stream.size())
        return false;
    m_at = m_next;
    m_type = biffU16(m_stream, m_next);
    m_data = m_stream.sliced(m_next + 4, length);
    m_next += 4 + length;
    return true;
}

BiffContinuedData BiffRecordCursor::takeContinued()
{
    BiffContinuedData result;
    result.bytes = m_data.toByteArray();
    while (m_next + 4 <= m_stream.size() && biffU16(m_stream, m_next) == kContinue) {
        const quint16 length = biffU16(m_stream, m_next + 2);
        if (m_next + 4 + length > m_stream.size())
            break;
        result.boundaries.append(result.bytes.size());
        result.bytes.append(m_stream.sliced(m_next + 4, length));
        m_next += 4 + length;
    }
    return result;
}

std::optional<quint32> BiffTextReader::u8()
{
    if (m_pos + 1 > m_data.bytes.size())
        return std::nullopt;
    return quint8(m_data.bytes[m_pos++]);
}

std::optional<quint32> BiffTextReader::u16()
{
    if (m_pos + 2 > m_data.bytes.size())
        return std::nullopt;
    m_pos += 2;
    return biffU16(m_data.bytes, m_pos - 2);
}

std::optional<quint32> BiffTextReader::u32()
{
    if (m_pos + 4 > m_data.bytes.size())
        return std::nullopt;
    m_pos += 4;
    return biffU32(m_data.bytes, m_pos - 4);
}

bool BiffTextReader::skip(qint64 count)
{
    if (count < 0 || count > m_data.bytes.size() - m_pos)
        return false;
    m_pos += qsizetype(count);
    return true;
}

qsizetype BiffTextReader::nextBoundary() const
{
    const auto found = std::upper_bound(m_data.boundaries.begin(), m_data.boundaries.end(), m_pos);
    return found == m_data.boundaries.end() ? m_data.bytes.size() : *found;
}

std::optional<QString> BiffTextReader::readChars(quint32 count, bool wide)
{
    QString text;
    text.reserve(count);
    while (count > 0) {
        // A run that starts on a boundary begins with the continuation's encoding byte.
        if (std::binary_search(m_data.boundaries.begin(), m_data.boundaries.end(), m_pos)) {
            const auto flags = u8();
            if (!flags)
                return std::nullopt;
            wide = (*flags & kWideFlag) != 0;
        }
        const qsizetype width = wide ? 2 : 1;
        const qsizetype available = (nextBoundary() - m_pos) / width;
        const auto take = quint32(std::min<qsizetype>(count, available));
        if (take == 0 && nextBoundary() >= m_data.bytes.size())
            return std::nullopt;
        for (quint32 i = 0; i < take; ++i) {
            const auto* at = m_data.bytes.constData() + m_pos;
            text.append(wide ? QChar(char16_t(quint8(at[0]) | (quint8(at[1]) << 8)))
                             : QChar(char16_t(quint8(at[0]))));
            m_pos += width;
        }
        count -= take;
        if (count > 0 && take == 0)
            m_pos = nextBoundary(); // a stray odd byte before the boundary
    }
    return text;
}

std::optional<QString> BiffTextReader::unicodeString(bool shortCount)
{
    const auto count = shortCount ? u8() : u16();
    const auto flags = u8();
    if (!count || !flags)
        return std::nullopt;
    quint32 runs = 0;
    quint32 extension = 0;
    if ((*flags & kRichFlag) != 0) {
        const auto r = u16();
        if (!r)
            return std::nullopt;
        runs = *r;
    }
    if ((*flags & kExtendedFlag) != 0) {
        const auto e = u32();
        if (!e)
            return std::nullopt;
        extension = *e;
    }
    std::optional<QString> text = readChars(*count, (*flags & kWideFlag) != 0);
    if (!text)
        return std::nullopt;
    if (!skip(qint64(runs) * 4) || !skip(extension))
        return std::nullopt;
    return text;
}

} // namespace nubo::database
