// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <QString>

namespace nubo::core {

// Decodes Windows-1252 bytes one character per byte; zero bytes stay as U+0000 and the five
// unassigned bytes map to the control characters of the same value, as the Windows table does.
QString decodeWindows1252(QByteArrayView bytes);

} // namespace nubo::core
