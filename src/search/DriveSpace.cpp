// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/DriveSpace.h"

#include <cmath>

namespace nubo::search {

namespace {

// Rounding to two decimals, half to even, as the Windows run-time library rounds.
double round2(double value)
{
    return std::nearbyint(value * 100.0) / 100.0;
}

QString number(double value, const QLocale& locale)
{
    QLocale plain = locale;
    plain.setNumberOptions(QLocale::OmitGroupSeparator);
    QString text = plain.toString(value, 'f', 2);
    const QString point = plain.decimalPoint();
    if (text.contains(point)) {
        while (text.endsWith(QLatin1Char('0')))
            text.chop(1);
        if (text.endsWith(point))
            text.chop(point.size());
    }
    return text;
}

} // namespace

DriveSpaceCaptions driveSpaceCaptions(quint64 totalBytes, quint64 freeBytes, const QLocale& locale)
{
    constexpr double kMega = 1048576.0;
    // Kept: the total in whole megabytes, the free space with its two decimals.
    const double totalMega = std::nearbyint(round2(double(totalBytes) / kMega));
    const double freeMega = round2(double(freeBytes) / kMega);
    const QString mbytes = QStringLiteral(" Mbytes (");
    const QString gb = QStringLiteral(") Gb");
    return {number(totalMega, locale) + mbytes + number(round2(totalMega / 1024.0), locale) + gb,
            number(freeMega, locale) + mbytes + number(round2(freeMega / 1024.0), locale) + gb};
}

} // namespace nubo::search
