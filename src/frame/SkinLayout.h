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
        {59, 167, 66, 66},  // list window
        {215, 158, 86, 84}, // options
        {329, 210, 42, 40}, // exit
        {134, 170, 72, 84}, // search
        {310, 158, 40, 40}, // author
    }};
    static constexpr QRect minimize{318, 84, 23, 21};
};

} // namespace nubo::frame
