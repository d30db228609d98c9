// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

namespace nubo::database::jet {

// A fixed-size field's stored bytes as the text the list shows: numbers as digits (whole
// numbers exactly), dates as "yyyy-MM-dd hh:mm" on the file's clock; empty for other types.
QString fixedValueText(quint8 type, QByteArrayView value);

} // namespace nubo::database::jet
