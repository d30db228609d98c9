// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/JetRow.h"

#include "database/ByteSink.h"

#include <QDateTime>

namespace nubo::database::jet {
namespace {

constexpr qsizetype kTypicalRowSize = 512; // room enough for most rows: one allocation

void putFixed(QByteArray& row, int at, const Column& column, const Value& value)
{
    if (std::holds_alternative<qint64>(value)) {
        const auto number = quint64(std::get<qint64>(value));
        for (int i = 0; i < column.length; ++i)
            row[at + i] = char((number >> (8 * i)) & 0xFF);
    } else if (std::holds_alternative<double>(value)) {
        QByteArray bytes;
        ByteSink(bytes).f64(std::get<double>(value));
        row.replace(at, 8, bytes);
    }
}

QByteArray varBytes(const Column& column, const Value& value)
{
    if (std::holds_alternative<QString>(value))
        return encodeText(std::get<QString>(value), (column.extFlags & kCompressedText) != 0);
    if (std::holds_alternative<QByteArray>(value))
        return std::get<QByteArray>(value);
    return {};
}

} // namespace

QByteArray encodeText(const QString& text, bool compressed)
{
    bool compressible = compressed;
    for (const QChar c : text)
        compressible = compressible && c.unicode() >= 1 && c.unicode() <= 0xFF;
    if (compressible) {
        QByteArray bytes(2 + text.size(), Qt::Uninitialized);
        char* out = bytes.data();
        *out++ = '\xFF';
        *out++ = '\xFE';
        for (const QChar c : text)
            *out++ = char(c.unicode());
        return bytes;
    }
    QByteArray bytes(2 * text.size(), Qt::Uninitialized);
    char* out = bytes.data();
    for (const QChar c : text) {
        *out++ = char(c.unicode() & 0xFF);
        *out++ = char(c.unicode() >> 8);
    }
    return bytes;
}

QByteArray encodeRow(const RowLayout& layout, const QList<Value>& values)
{
    const int count = layout.columnCount;
    QByteArray row;
    row.reserve(kTypicalRowSize);
    ByteSink sink(row);
    sink.u16(quint32(count));
    const int fixedStart = int(row.size());
    sink.zeros(layout.fixedSize);
    QByteArray nullMask((count + 7) / 8, '\0');
    QList<quint16> varOffsets(layout.varCount);
    for (int n = 0; n < count; ++n) {
        const Column& column = layout.byNumber.at(n);
        const Value& value = values.value(n);
        bool present = !std::holds_alternative<std::monostate>(value);
        if (column.type == kBoolean)
            present = present && std::get<qint64>(value) != 0;
        if (layout.fixedOffset.at(n) >= 0)
            putFixed(row, fixedStart + layout.fixedOffset.at(n), column, value);
        if (present)
            nullMask[n / 8] = char(nullMask[n / 8] | (1 << (n % 8)));
    }
    for (int n = 0; n < count; ++n) {
        const int v = layout.varIndex.at(n);
        if (v < 0)
            continue;
        varOffsets[v] = quint16(row.size());
        sink.bytes(varBytes(layout.byNumber.at(n), values.value(n)));
    }
    sink.u16(quint32(row.size())); // end of the variable data
    for (int v = layout.varCount - 1; v >= 0; --v)
        sink.u16(varOffsets.at(v));
    sink.u16(quint32(layout.varCount));
    sink.bytes(nullMask);
    return row;
}

double oleDateNow()
{
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime epoch(QDate(1899, 12, 30), QTime(0, 0));
    const qint64 days = epoch.date().daysTo(now.date());
    return double(days) + double(now.time().msecsSinceStartOfDay()) / 86400000.0;
}

} // namespace nubo::database::jet
