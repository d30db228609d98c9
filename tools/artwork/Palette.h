// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>

namespace nubo::artwork {

// The program's colours: a pale cloud on a clear sky, navy ink, a warm sun for "on".
inline const QColor kKey(0, 0, 0); // cut away from the main window; exact in a JPEG
inline const QColor kCloudTop(253, 253, 253);
inline const QColor kCloudBottom(222, 222, 222);
inline const QColor kRim(150, 150, 150);
inline const QColor kSkyLight(150, 196, 246);
inline const QColor kSky(70, 132, 214);
inline const QColor kSkyDeep(38, 86, 168);
inline const QColor kInk(30, 46, 88);
inline const QColor kSun(246, 160, 48);
inline const QColor kSunLight(255, 214, 120);

QColor mix(const QColor& a, const QColor& b, double t);
QPainterPath cloudPath(const QRectF& r);
bool saveJpeg(const QImage& image, const QString& path);
bool saveBytes(const QByteArray& bytes, const QString& path);

// Glyphs drawn in a square of side s at the painter's origin, in the pen's colour.
enum class Glyph {
    List,
    Sliders,
    Power,
    SearchPlus,
    Info,
    Minus,
    Trash,
    Plus,
    Sheet,
    Disc,
    Check,
    Folder
};
void drawGlyph(QPainter& p, Glyph glyph, double s, const QColor& colour);

// A round badge of diameter d centred in a box: the state t (0 idle .. 1 on) warms it.
void drawBadge(QPainter& p, const QPointF& centre, double radius, double t, Glyph glyph);

} // namespace nubo::artwork
