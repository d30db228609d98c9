// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/JetSchema.h"

#include <QByteArray>
#include <QString>

#include <variant>

namespace nubo::database::jet {

// One stored value: null, a number (integer types and booleans), a date, text or bytes.
using Value = std::variant<std::monostate, qint64, double, QString, QByteArray>;

// Encodes a row of the table; values are given by column number.
QByteArray encodeRow(const RowLayout& layout, const QList<Value>& values);

// Text as a text column stores it: compressed (one byte a character) when every character
// allows it and the column asks for it, UTF-16 otherwise.
QByteArray encodeText(const QString& text, bool compressed);

// Days since 30 December 1899, as the engine stores dates.
double oleDateNow();

} // namespace nubo::database::jet
