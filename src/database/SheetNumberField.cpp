// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/SheetNumberField.h"

#include <cmath>
#include <limits>

namespace nubo::database {

bool SheetNumberField::isNumber(const QString& text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    return ok && std::isfinite(value);
}

std::optional<int> SheetNumberField::numberOf(const QString& text)
{
    if (!isNumber(text))
        return std::nullopt;
    constexpr double kLargest = std::numeric_limits<int>::max();
    const double value = std::round(text.trimmed().toDouble());
    return int(std::clamp(value, -kLargest, kLargest));
}

QString SheetNumberField::checked(const QString& text) const
{
    if (isNumber(text) || (m_emptyAllowed && text.isEmpty()))
        return text;
    return QStringLiteral("0");
}

QString SheetNumberField::stepped(const QString& text, int step) const
{
    const int value = numberOf(text).value_or(0);
    if (step > 0 && value < m_high)
        return QString::number(value + 1);
    if (step < 0 && value > m_low)
        return QString::number(value - 1);
    return QString::number(value);
}

} // namespace nubo::database
