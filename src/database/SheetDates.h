// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QTimeZone>

#include <optional>

namespace nubo::database {

// Dates as the catalogue files keep them ("yyyy-MM-dd hh:mm" in local time, as core::dateText
// writes them), converted through the system's time zone taken once. Converting through local
// time makes the C library look the zone up again at every date, which costs more than the
// rest of a row; a workbook of 65,534 rows converts that many dates each way.
class SheetDates final
{
public:
    SheetDates();

    // An empty text for an unknown date (core::FileDetails::kNoDate).
    QString text(qint64 secondsSinceEpoch) const;
    // Only the written layout; nothing for other text, which the caller reads the slow way.
    std::optional<qint64> fromText(const QString& text) const;

private:
    QTimeZone m_zone;
};

} // namespace nubo::database
