// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

// The message line's colours, as 0xRRGGBB.
namespace nubo::catalogue::colours {

inline constexpr quint32 kRed = 0xFF0000;
inline constexpr quint32 kBlue = 0x0000FF;
inline constexpr quint32 kYellow = 0xFFFF00;
inline constexpr quint32 kWhite = 0xFFFFFF;

inline constexpr quint32 rgb(int r, int g, int b)
{
    return (quint32(r & 0xFF) << 16) | (quint32(g & 0xFF) << 8) | quint32(b & 0xFF);
}

} // namespace nubo::catalogue::colours
