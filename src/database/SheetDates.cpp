// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/SheetDates.h"

#include "core/FileDetails.h"

#include <QDateTime>

namespace nubo::database {
namespace {

// The number held by count digits of text from at, or -1 when one is no digit.
int digitsAt(QStringView text, qsizetype at, int count)
{
    int value = 0;
    for (int i = 0; i < count; ++i) {
        const QChar c = text[at + i];
        if (c < u'0' || c > u'9')
            return -1;
        value = value * 10 + (c.unicode() - u'0');
    }
    return value;
}

} // namespace

SheetDates::SheetDates() : m_zone(QTimeZone::systemTimeZone()) {}

QString SheetDates::text(qint64 secondsSinceEpoch) const
{
    if (secondsSinceEpoch == core::FileDetails::kNoDate)
        return {};
    if (!m_zone.isValid())
        return core::dateText(secondsSinceEpoch);
    return QDateTime::fromSecsSinceEpoch(secondsSinceEpoch, m_zone)
        .toString(QStringLiteral("yyyy-MM-dd hh:mm"));
}

std::optional<qint64> SheetDates::fromText(const QString& text) const
{
    // "yyyy-MM-dd hh:mm": 16 characters, separators at fixed places.
    const QStringView t(text);
    if (!m_zone.isValid() || t.size() != 16 || t[4] != u'-' || t[7] != u'-' || t[10] != u' ' ||
        t[13] != u':')
        return std::nullopt;
    const QDate date(digitsAt(t, 0, 4), digitsAt(t, 5, 2), digitsAt(t, 8, 2));
    const QTime time(digitsAt(t, 11, 2), digitsAt(t, 14, 2));
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    const QDateTime moment(date, time, m_zone);
    if (!moment.isValid())
        return std::nullopt;
    return moment.toSecsSinceEpoch();
}

} // namespace nubo::database
