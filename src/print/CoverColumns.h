// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/RuntimeError.h"

#include <QList>
#include <QStringList>

#include <optional>

namespace nubo::print {

// The widest layout a 12 cm cover can hold: columns narrower than 6 mm are refused.
inline constexpr int kMaxColumns = 20;

// The answer to the column question as a 16-bit integer, or the run-time error that
// converting it raises.
struct ColumnCount
{
    qint16 n = 0;
    std::optional<core::RuntimeError> error;
};

// Converts the typed answer: blanks around it are ignored and a fraction rounds half to even;
// an empty or non-numeric answer is a type mismatch (13), beyond 16 bits an overflow (6).
[[nodiscard]] ColumnCount parseColumnCount(const QString& answer);

// R = rows / n rounded half to even, as a 16-bit integer: n = 0 is a division by zero (11),
// an R beyond 16 bits an overflow (6).
struct NamesPerColumn
{
    qint16 r = 0;
    std::optional<core::RuntimeError> error;
};
NamesPerColumn namesPerColumn(int rows, qint16 n);

// The error raised for an n that converts but cannot be laid out: negative, or more columns
// than kMaxColumns.
[[nodiscard]] std::optional<core::RuntimeError> checkColumnsFit(qint16 n);

// "COLUMNA1" .. "COLUMNAn".
QStringList columnHeaders(int n);

// The names in list order, column by column, r to a column. Names beyond n x r are not lost:
// the first columns take one more each, in order, so column c still continues column c - 1.
// When n x r exceeds the names, the last columns are shorter or empty.
QList<QStringList> fillColumns(const QStringList& names, int n, int r);

} // namespace nubo::print
