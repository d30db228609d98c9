// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/LocalDateTexts.h"

#include "core/FileDetails.h"

#include <QDateTime>

namespace nubo::database {
namespace {

constexpr qint64 kHour = 3600;
constexpr qint64 kDay = 86400;
constexpr qint64 kUnixEpochJulianDay = 2440588;
constexpr qsizetype kTextSize = 16; // "yyyy-MM-dd hh:mm"

qint64 floorDiv(qint64 value, qint64 by)
{
    return value / by - (value % by < 0 ? 1 : 0);
}

void appendNumber(QString& text, int value, int digits)
{
    for (int power = digits == 4 ? 1000 : 10; power > 0; power /= 10)
        text.append(QChar(u'0' + value / power % 10));
}

// The digits at text[at, at + count), or -1.
int digitsAt(const QString& text, qsizetype at, int count)
{
    int value = 0;
    for (qsizetype i = at; i < at + count; ++i) {
        const char16_t c = text.at(i).unicode();
        if (c < u'0' || c > u'9')
            return -1;
        value = value * 10 + (c - u'0');
    }
    return value;
}

} // namespace

int LocalDateTexts::offsetOfUtcHour(qint64 hour) const
{
    const auto found = m_utcHours.constFind(hour);
    if (found != m_utcHours.cend())
        return *found;
    if (!m_zone.isValid())
        return kChanging; // every date then takes core::dateText
    const int start = QDateTime::fromSecsSinceEpoch(hour * kHour, m_zone).offsetFromUtc();
    const int end = QDateTime::fromSecsSinceEpoch(hour * kHour + kHour - 1, m_zone).offsetFromUtc();
    return m_utcHours[hour] = start == end ? start : kChanging;
}

// A clock time that is never skipped or repeated: its offset holds from the hour before to the
// hour after, so no change of offset is near.
int LocalDateTexts::offsetOfLocalHour(qint64 hour) const
{
    const auto found = m_localHours.constFind(hour);
    if (found != m_localHours.cend())
        return *found;
    const auto at = [this](qint64 localSeconds) {
        const QDate date = QDate::fromJulianDay(floorDiv(localSeconds, kDay) + kUnixEpochJulianDay);
        return QDateTime(date,
                         QTime::fromMSecsSinceStartOfDay(
                             int(localSeconds - floorDiv(localSeconds, kDay) * kDay) * 1000),
                         m_zone);
    };
    const QDateTime start = at(hour * kHour);
    bool steady = start.isValid();
    for (const qint64 second : {-kHour, kHour - 1, 2 * kHour - 1}) {
        const QDateTime other = at(hour * kHour + second);
        steady = steady && other.isValid() && other.offsetFromUtc() == start.offsetFromUtc();
    }
    return m_localHours[hour] = steady ? start.offsetFromUtc() : kChanging;
}

QString LocalDateTexts::text(qint64 secondsSinceEpoch) const
{
    if (secondsSinceEpoch == core::FileDetails::kNoDate)
        return {};
    const int offset = offsetOfUtcHour(floorDiv(secondsSinceEpoch, kHour));
    const qint64 local = secondsSinceEpoch + offset;
    const QDate date = QDate::fromJulianDay(floorDiv(local, kDay) + kUnixEpochJulianDay);
    if (offset == kChanging || date.year() < 1 || date.year() > 9999)
        return core::dateText(secondsSinceEpoch);
    const auto inDay = int(local - floorDiv(local, kDay) * kDay);
    QString text;
    text.reserve(kTextSize);
    appendNumber(text, date.year(), 4);
    text.append(u'-');
    appendNumber(text, date.month(), 2);
    text.append(u'-');
    appendNumber(text, date.day(), 2);
    text.append(u' ');
    appendNumber(text, inDay / 3600, 2);
    text.append(u':');
    appendNumber(text, inDay / 60 % 60, 2);
    return text;
}

std::optional<qint64> LocalDateTexts::fromText(const QString& text) const
{
    if (text.size() != kTextSize || text.at(4) != u'-' || text.at(7) != u'-' ||
        text.at(10) != u' ' || text.at(13) != u':')
        return core::dateFromText(text);
    const int year = digitsAt(text, 0, 4), month = digitsAt(text, 5, 2);
    const int day = digitsAt(text, 8, 2), hour = digitsAt(text, 11, 2);
    const int minute = digitsAt(text, 14, 2);
    const QDate date(year, month, day);
    if (year < 1 || !date.isValid() || hour < 0 || hour > 23 || minute < 0 || minute > 59)
        return core::dateFromText(text);
    const qint64 local =
        (date.toJulianDay() - kUnixEpochJulianDay) * kDay + hour * kHour + minute * 60;
    const int offset = offsetOfLocalHour(floorDiv(local, kHour));
    if (offset == kChanging)
        return core::dateFromText(text);
    return local - offset;
}

} // namespace nubo::database
