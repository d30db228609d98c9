// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/CoverColumns.h"

#include <QLocale>

#include <cmath>
#include <limits>

namespace nubo::print {

namespace {

constexpr int kOverflow = 6;
constexpr int kDivisionByZero = 11;
constexpr int kTypeMismatch = 13;
constexpr int kInvalidArgument = 5;

bool fitsSixteenBits(double value)
{
    return value >= std::numeric_limits<qint16>::min() - 0.5 &&
           value < std::numeric_limits<qint16>::max() + 0.5;
}

// The nearest whole number, halves going to the even neighbour.
double roundHalfEven(double value)
{
    return std::nearbyint(value); // the default rounding mode is to nearest, ties to even
}

} // namespace

ColumnCount parseColumnCount(const QString& answer)
{
    QString text = answer.trimmed();
    text.replace(QLatin1Char(','), QLatin1Char('.'));
    bool ok = false;
    const double value = QLocale::c().toDouble(text, &ok);
    if (!ok || !std::isfinite(value))
        return {0, core::RuntimeError::fromNumber(kTypeMismatch)};
    const double rounded = roundHalfEven(value);
    if (!fitsSixteenBits(rounded))
        return {0, core::RuntimeError::fromNumber(kOverflow)};
    return {static_cast<qint16>(rounded), std::nullopt};
}

NamesPerColumn namesPerColumn(int rows, qint16 n)
{
    if (n == 0)
        return {0, core::RuntimeError::fromNumber(kDivisionByZero)};
    const double r = roundHalfEven(static_cast<double>(rows) / n);
    if (!fitsSixteenBits(r))
        return {0, core::RuntimeError::fromNumber(kOverflow)};
    return {static_cast<qint16>(r), std::nullopt};
}

std::optional<core::RuntimeError> checkColumnsFit(qint16 n)
{
    if (n < 0)
        return core::RuntimeError::fromNumber(kInvalidArgument);
    if (n > kMaxColumns)
        return core::RuntimeError::fromNumber(kOverflow);
    return std::nullopt;
}

QStringList columnHeaders(int n)
{
    QStringList headers;
    for (int c = 1; c <= n; ++c)
        headers << QStringLiteral("COLUMNA") + QString::number(c);
    return headers;
}

QList<QStringList> fillColumns(const QStringList& names, int n, int r)
{
    QList<QStringList> columns(n);
    if (n <= 0)
        return columns;
    const qsizetype extra = std::max<qsizetype>(0, names.size() - qsizetype(n) * r);
    qsizetype next = 0;
    for (int c = 0; c < n && next < names.size(); ++c) {
        const qsizetype more = extra / n + (c < extra % n ? 1 : 0);
        const qsizetype take = std::min(names.size() - next, r + more);
        columns[c] = names.mid(next, take);
        next += take;
    }
    return columns;
}

} // namespace nubo::print
