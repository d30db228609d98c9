// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QRect>

namespace nubo::frame {

// The rectangles of the growing-rectangle effect over a window's screen rectangle: step i of
// steps is i/steps of the window's size, centred on it, every figure rounded half to even.
QList<QRect> growingRectangles(const QRect& window, qint16 steps);

} // namespace nubo::frame
