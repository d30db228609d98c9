// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/RegionFromImage.h"

namespace nubo::frame {

namespace {

// A rectangle given by two corner columns on one row; the platform's rectangle regions
// accept the corners in either order, so a carried run that closes left of its start
// still covers the columns between the two.
QRect runRectangle(int startX, int endX, int y)
{
    const int left = qMin(startX, endX);
    const int right = qMax(startX, endX);
    return QRect(left, y, right - left, 1);
}

} // namespace

QList<QRect> RegionDesdeImagen(int width, int height, const PixelReader& pixel)
{
    QList<QRect> region;
    if (width <= 0 || height <= 0)
        return region;
    const quint32 transparent = pixel(0, 0);
    bool inRun = false;
    int start = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (pixel(x, y) != transparent) {
                if (!inRun) {
                    start = x;
                    inRun = true;
                }
            } else if (inRun) {
                region.append(runRectangle(start, x, y));
                inRun = false;
            }
        }
        // Deliberately kept: a run is not closed at the end of its row. It stays open into
        // the next row and closes there at that row's first transparent pixel.
    }
    return region;
}

} // namespace nubo::frame
