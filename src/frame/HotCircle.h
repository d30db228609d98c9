// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>

#include <array>

namespace nubo::frame {

// A round button's active area, in pixels of the button's own box: a point counts when its
// squared distance from the centre is at most the limit.
struct HotCircle
{
    double centreX;
    double centreY;
    double squaredRadius;

    constexpr bool contains(QPointF point) const
    {
        const double dx = point.x() - centreX;
        const double dy = point.y() - centreY;
        return dx * dx + dy * dy <= squaredRadius;
    }
};

// Picture1 .. Picture5, then PicMinimize.
inline constexpr std::array<HotCircle, 5> kButtonCircles = {{
    {33, 33, 900},
    {43, 42, 1600},
    {21, 20, 400},
    {36, 42, 1225},
    {20, 20, 361},
}};
inline constexpr HotCircle kMinimizeCircle{11.5, 10.5, 64};

} // namespace nubo::frame
