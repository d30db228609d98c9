// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>

namespace nubo::frame {

// Where a window opened from the main window goes: beside the main window's right edge,
// top edges aligned, or beside its left edge when the screen has no room on the right;
// always kept on the screen.
QPoint besideWindow(const QRect& anchor, const QSize& size, const QRect& screen);

} // namespace nubo::frame
