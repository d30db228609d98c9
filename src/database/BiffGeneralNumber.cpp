// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BiffWorkbookParser.h"

#include <cmath>

namespace nubo::database {

QString generalNumberText(double value)
{
    if (!std::isfinite(value))
        return {};
    // General shows at most 11 characters; beyond that large and tiny numbers go scientific.
    const double magnitude = std::fabs(value);
    if (magnitude != 0 && (magnitude >= 1e11 || magnitude < 1e-9)) {
        QString text = QString::number(value, 'E', 5);
        const qsizetype e = text.indexOf(QLatin1Char('E'));
        QString mantissa = text.left(e);
        if (mantissa.contains(QLatin1Char('.'))) {
            while (mantissa.endsWith(QLatin1Char('0')))
                mantissa.chop(1);
            if (mantissa.endsWith(QLatin1Char('.')))
                mantissa.chop(1);
        }
        QString exponent = text.mid(e + 1);
        const QChar sign = exponent.at(0);
        exponent = exponent.mid(1).rightJustified(2, QLatin1Char('0'));
        return mantissa + QLatin1Char('E') + sign + exponent.right(qMax(2, int(exponent.size())));
    }
    const int integerDigits = magnitude < 1 ? 1 : int(std::floor(std::log10(magnitude))) + 1;
    const int decimals = std::max(0, 10 - integerDigits - (value < 0 ? 1 : 0));
    QString text = QString::number(value, 'f', decimals);
    if (text.contains(QLatin1Char('.'))) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
    }
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

} // namespace nubo::database
