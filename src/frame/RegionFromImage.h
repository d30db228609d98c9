// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QRect>

#include <functional>

namespace nubo::frame {

// Reads one pixel of a picture as 0xRRGGBB.
using PixelReader = std::function<quint32(int x, int y)>;

// The window region of a skin: the rectangles whose union is every pixel that differs from
// the top-left pixel's colour, built row by row as runs. An empty list is the null region
// (no visible pixel, or an empty picture).
QList<QRect> RegionDesdeImagen(int width, int height, const PixelReader& pixel);

} // namespace nubo::frame
