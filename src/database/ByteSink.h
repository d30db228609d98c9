// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <cstring>

namespace nubo::database {

// Little-endian appends and patches on a byte array: the common ground of both binary formats.
class ByteSink final
{
public:
    explicit ByteSink(QByteArray& bytes) : m_bytes(bytes) {}

    void u8(quint32 value) { m_bytes.append(char(value & 0xFF)); }
    void u16(quint32 value)
    {
        u8(value);
        u8(value >> 8);
    }
    void u32(quint32 value)
    {
        u16(value);
        u16(value >> 16);
    }
    void f64(double value)
    {
        quint64 bits = 0;
        static_assert(sizeof bits == sizeof value);
        memcpy(&bits, &value, sizeof bits);
        u32(quint32(bits));
        u32(quint32(bits >> 32));
    }
    void zeros(qsizetype count) { m_bytes.append(count, '\0'); }
    void bytes(const QByteArray& data) { m_bytes.append(data); }
    void utf16(const QString& text)
    {
        for (const QChar c : text)
            u16(c.unicode());
    }
    qsizetype size() const { return m_bytes.size(); }

    static void put16(QByteArray& bytes, qsizetype at, quint32 value)
    {
        bytes[at] = char(value & 0xFF);
        bytes[at + 1] = char((value >> 8) & 0xFF);
    }
    static void put32(QByteArray& bytes, qsizetype at, quint32 value)
    {
        put16(bytes, at, value);
        put16(bytes, at + 2, value >> 16);
    }

private:
    QByteArray& m_bytes;
};

} // namespace nubo::database
