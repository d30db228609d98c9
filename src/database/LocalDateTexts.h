// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QTimeZone>

#include <limits>
#include <optional>

namespace nubo::database {

// Dates as the catalogue texts them ("yyyy-MM-dd hh:mm", local time), for a million rows: the
// local time's offset is asked once an hour of the clock and kept, where asking it for every
// date makes the C library look at the zone file each time. An hour in which the offset
// changes, and any other text, take core::dateText and core::dateFromText, so the texts and
// the times are always theirs.
class LocalDateTexts final
{
public:
    // An empty text for an unknown date (core::FileDetails::kNoDate).
    QString text(qint64 secondsSinceEpoch) const;
    std::optional<qint64> fromText(const QString& text) const;

private:
    static constexpr int kChanging = std::numeric_limits<int>::min();

    int offsetOfUtcHour(qint64 hour) const;
    int offsetOfLocalHour(qint64 hour) const;

    // The system's zone taken once: asking local time instead makes the C library look the
    // zone up again at every call.
    QTimeZone m_zone = QTimeZone::systemTimeZone();
    // Offsets found so far, kept across calls of the const reads.
    mutable QHash<qint64, int> m_utcHours;
    mutable QHash<qint64, int> m_localHours;
};

} // namespace nubo::database
