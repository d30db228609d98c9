// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>

#include <array>

namespace nubo::frame {

// Where the main window's picture boxes sit on the skin. The picture generator draws the
// skin and the faces from the same places, so the faces' corners match the skin beneath.
struct SkinLayout
{
    static constexpr QSize skinSize{420, 300};
    // Picture1 .. Picture5; each box holds its button's hot circle.
    static constexpr std::array<QRect, 5> buttons = {{
        {67, 173, 66, 66},  // list window
        {225, 162, 86, 84}, // options
        {315, 226, 42, 40}, // exit
        {144, 170, 72, 84}, // search
        {322, 166, 40, 40}, // author
    }};
    static constexpr QRect minimize{361, 140, 23, 21};
};

} // namespace nubo::frame
