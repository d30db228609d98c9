// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/GrowingRectangles.h"

#include <cmath>

namespace nubo::frame {

namespace {

// Assigning a floating value to a whole number rounds to the nearest, halves to even.
int roundHalfEven(double value)
{
    return int(std::nearbyint(value));
}

} // namespace

QList<QRect> growingRectangles(const QRect& window, qint16 steps)
{
    QList<QRect> rectangles;
    const int left = window.left();
    const int top = window.top();
    const qint16 width = qint16(window.width());
    const qint16 height = qint16(window.height());
    for (int i = 1; i <= steps; ++i) {
        const int w = roundHalfEven(double(i) / steps * width);
        const int h = roundHalfEven(double(i) / steps * height);
        const int x = roundHalfEven((width - w) / 2.0 + left);
        const int y = roundHalfEven((height - h) / 2.0 + top);
        rectangles.append(QRect(x, y, w, h));
    }
    return rectangles;
}

} // namespace nubo::frame
