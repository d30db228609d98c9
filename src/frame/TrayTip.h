// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::frame {

// What the notification area shows of a tooltip: the text in the local 8-bit encoding, ended
// at a zero character and cut to 63 bytes (the tip field holds 64 with its terminating zero).
// A character the cut goes through is dropped whole.
QString trayTip(const QString& text);

} // namespace nubo::frame
