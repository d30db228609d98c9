// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DetailKeyText.h"

#include <QDateTime>

#include <charconv>

namespace nubo::catalogue {

namespace {

constexpr qint64 kSecondsPerHour = 3600;
constexpr qint64 kSecondsPerDay = 86400;

void appendInteger(qint64 value, std::string& key)
{
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    key.append(digits, end);
}

void appendPadded(qint64 value, int width, std::string& key)
{
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    key.append(std::size_t(std::max<std::ptrdiff_t>(0, width - (end - digits))), '0');
    key.append(digits, end);
}

qint64 floorDiv(qint64 a, qint64 b)
{
    return a / b - (a % b != 0 && (a < 0) != (b < 0));
}

// The proleptic Gregorian date of a day counted from 1970-01-01 (H. Hinnant's civil_from_days).
void civilDate(qint64 days, qint64& year, int& month, int& day)
{
    const qint64 z = days + 719468;
    const qint64 era = floorDiv(z, 146097);
    const qint64 dayOfEra = z - era * 146097;
    const qint64 yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const qint64 dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const qint64 monthIndex = (5 * dayOfYear + 2) / 153;
    day = int(dayOfYear - (153 * monthIndex + 2) / 5 + 1);
    month = int(monthIndex < 10 ? monthIndex + 3 : monthIndex - 9);
    year = yearOfEra + era * 400 + (month <= 2 ? 1 : 0);
}

} // namespace

bool DetailKeyText::appendNumber(const core::FileDetails& details, core::DetailField field,
                                 std::string& key)
{
    using core::DetailField;
    switch (field) {
    case DetailField::Tamano:
        if (details.size != core::FileDetails::kNoSize)
            appendInteger(details.size, key);
        return true;
    case DetailField::Fecha:
        if (details.modified != core::FileDetails::kNoDate)
            appendDate(details.modified, key);
        return true;
    case DetailField::Ano:
    case DetailField::Pista:
        if (const quint16 n = field == DetailField::Ano ? details.year : details.track; n != 0)
            appendInteger(n, key);
        return true;
    case DetailField::Duracion:
        if (const qint32 s = details.duration; s != core::FileDetails::kNoDuration) {
            // As core::durationText: "m:ss", or "h:mm:ss" from an hour on.
            const qint32 hours = s / 3600;
            if (hours > 0) {
                appendInteger(hours, key);
                key.push_back(':');
            }
            appendPadded(hours > 0 ? s / 60 % 60 : s / 60, hours > 0 ? 2 : 1, key);
            key.push_back(':');
            appendPadded(s % 60, 2, key);
        }
        return true;
    default:
        return false;
    }
}

bool DetailKeyText::offsetOfHour(qint64 secondsSinceEpoch, qint64& offset)
{
    const qint64 hour = floorDiv(secondsSinceEpoch, kSecondsPerHour);
    if (!m_hourKnown || hour != m_hour) {
        const qint64 start = hour * kSecondsPerHour;
        m_hourOffset = QDateTime::fromSecsSinceEpoch(start).offsetFromUtc();
        m_hourUniform =
            QDateTime::fromSecsSinceEpoch(start + kSecondsPerHour - 1).offsetFromUtc() ==
            m_hourOffset;
        m_hour = hour;
        m_hourKnown = true;
    }
    offset = m_hourOffset;
    return m_hourUniform;
}

// "yyyy-MM-dd hh:mm" in local time, as core::dateText writes it; the rare hour in which the
// offset changes, and years QDateTime writes otherwise, go through core::dateText itself.
void DetailKeyText::appendDate(qint64 secondsSinceEpoch, std::string& key)
{
    qint64 offset = 0;
    qint64 year = 0;
    int month = 0;
    int day = 0;
    const bool uniform = offsetOfHour(secondsSinceEpoch, offset);
    const qint64 local = secondsSinceEpoch + offset;
    civilDate(floorDiv(local, kSecondsPerDay), year, month, day);
    if (!uniform || year < 1000 || year > 9999) {
        key += core::dateText(secondsSinceEpoch).toStdString();
        return;
    }
    const qint64 minuteOfDay = (local - floorDiv(local, kSecondsPerDay) * kSecondsPerDay) / 60;
    appendInteger(year, key);
    key.push_back('-');
    appendPadded(month, 2, key);
    key.push_back('-');
    appendPadded(day, 2, key);
    key.push_back(' ');
    appendPadded(minuteOfDay / 60, 2, key);
    key.push_back(':');
    appendPadded(minuteOfDay % 60, 2, key);
}

} // namespace nubo::catalogue
