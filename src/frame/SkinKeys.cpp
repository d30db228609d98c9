// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/SkinKeys.h"

namespace nubo::frame {

std::optional<SkinKeyPress> skinKeyPress(int character)
{
    switch (character) {
    case 1:
        return SkinKeyPress{4, {39, 42}};
    case 9:
        return SkinKeyPress{5, {18, 24}};
    case 12:
        return SkinKeyPress{1, {30, 33}};
    case 15:
        return SkinKeyPress{2, {39, 41}};
    case 19:
        return SkinKeyPress{3, {19, 19}};
    default:
        return std::nullopt;
    }
}

} // namespace nubo::frame
