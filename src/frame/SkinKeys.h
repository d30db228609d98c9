// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointF>

#include <optional>

namespace nubo::frame {

// A control character typed on the skin, turned into a press of a round button at a point
// inside its hot circle.
struct SkinKeyPress
{
    int button; // 1 .. 5
    QPointF point;
};

// Ctrl+A (1), Ctrl+I (9), Ctrl+L (12), Ctrl+O (15) and Ctrl+S (19); nothing for other keys.
std::optional<SkinKeyPress> skinKeyPress(int character);

} // namespace nubo::frame
