// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/JetValueText.h"

#include <QDateTime>

#include <cmath>
#include <cstring>

namespace nubo::database::jet {
namespace {

// Column types (mdbtools' HACKING, "Column Types").
constexpr quint8 kTypeByte = 0x02;
constexpr quint8 kTypeInteger = 0x03;
constexpr quint8 kTypeLong = 0x04;
constexpr quint8 kTypeSingle = 0x06;
constexpr quint8 kTypeDouble = 0x07;
constexpr quint8 kTypeDateTime = 0x08;

quint64 littleEndian(QByteArrayView v, int bytes)
{
    quint64 value = 0;
    for (int i = std::min<int>(bytes, int(v.size())) - 1; i >= 0; --i)
        value = (value << 8) | quint8(v[i]);
    return value;
}

// A number as digits: whole numbers (sizes) exactly, others to their precision; nothing for
// what is no number.
QString numberText(double value, int digits)
{
    if (!std::isfinite(value))
        return {};
    if (std::trunc(value) == value && std::abs(value) < 9.0e15)
        return QString::number(qint64(value));
    return QString::number(value, 'g', digits);
}

} // namespace

QString fixedValueText(quint8 type, QByteArrayView v)
{
    switch (type) {
    case kTypeByte:
        return QString::number(quint32(littleEndian(v, 1)));
    case kTypeInteger:
        return QString::number(qint16(littleEndian(v, 2)));
    case kTypeLong:
        return QString::number(qint32(littleEndian(v, 4)));
    case kTypeSingle: {
        const auto bits = quint32(littleEndian(v, 4));
        float value = 0;
        memcpy(&value, &bits, sizeof value);
        return numberText(double(value), 7);
    }
    case kTypeDouble:
    case kTypeDateTime: {
        const quint64 bits = littleEndian(v, 8);
        double value = 0;
        memcpy(&value, &bits, sizeof value);
        if (type == kTypeDouble)
            return numberText(value, 17);
        // Days since 30 December 1899, local time, as the engine stores dates.
        if (!std::isfinite(value) || std::abs(value) > 3.0e6)
            return {};
        const auto minutes = qint64(std::llround(value * 24 * 60));
        const QDateTime epoch(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC); // a naive clock
        return epoch.addSecs(minutes * 60).toString(QStringLiteral("yyyy-MM-dd hh:mm"));
    }
    default:
        return {};
    }
}

} // namespace nubo::database::jet
