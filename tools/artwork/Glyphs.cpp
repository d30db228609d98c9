// SPDX-License-Identifier: GPL-3.0-or-later
// The white pictograms on the program's round badges.
#include "Palette.h"

#include <QPainter>

namespace nubo::artwork {

namespace {

void listGlyph(QPainter& p, double s)
{
    for (int i = 0; i < 3; ++i) {
        const double y = s * (0.28 + 0.22 * i);
        p.drawPoint(QPointF(s * 0.22, y));
        p.drawLine(QPointF(s * 0.36, y), QPointF(s * 0.80, y));
    }
}

void slidersGlyph(QPainter& p, double s)
{
    const double knobs[3] = {0.35, 0.68, 0.48};
    for (int i = 0; i < 3; ++i) {
        const double x = s * (0.26 + 0.24 * i);
        p.drawLine(QPointF(x, s * 0.18), QPointF(x, s * 0.82));
        p.save();
        p.setBrush(p.pen().color());
        p.drawEllipse(QPointF(x, s * knobs[i]), s * 0.07, s * 0.07);
        p.restore();
    }
}

void powerGlyph(QPainter& p, double s)
{
    const QRectF arc(s * 0.2, s * 0.22, s * 0.6, s * 0.6);
    p.drawArc(arc, 120 * 16, 300 * 16);
    p.drawLine(QPointF(s * 0.5, s * 0.14), QPointF(s * 0.5, s * 0.48));
}

void searchPlusGlyph(QPainter& p, double s)
{
    p.drawEllipse(QRectF(s * 0.16, s * 0.16, s * 0.5, s * 0.5));
    p.drawLine(QPointF(s * 0.6, s * 0.6), QPointF(s * 0.84, s * 0.84));
    p.drawLine(QPointF(s * 0.41, s * 0.29), QPointF(s * 0.41, s * 0.53));
    p.drawLine(QPointF(s * 0.29, s * 0.41), QPointF(s * 0.53, s * 0.41));
}

void infoGlyph(QPainter& p, double s)
{
    p.save();
    p.setBrush(p.pen().color());
    p.drawEllipse(QPointF(s * 0.5, s * 0.25), s * 0.06, s * 0.06);
    p.restore();
    p.drawLine(QPointF(s * 0.5, s * 0.44), QPointF(s * 0.5, s * 0.78));
}

void discGlyph(QPainter& p, double s)
{
    p.drawEllipse(QRectF(s * 0.14, s * 0.14, s * 0.72, s * 0.72));
    p.drawEllipse(QRectF(s * 0.42, s * 0.42, s * 0.16, s * 0.16));
}

void sheetGlyph(QPainter& p, double s)
{
    p.drawRoundedRect(QRectF(s * 0.2, s * 0.16, s * 0.6, s * 0.68), s * 0.06, s * 0.06);
    for (double y : {0.38, 0.56})
        p.drawLine(QPointF(s * 0.2, s * y), QPointF(s * 0.8, s * y));
    p.drawLine(QPointF(s * 0.44, s * 0.16), QPointF(s * 0.44, s * 0.84));
}

void trashGlyph(QPainter& p, double s)
{
    p.drawLine(QPointF(s * 0.2, s * 0.28), QPointF(s * 0.8, s * 0.28));
    p.drawLine(QPointF(s * 0.42, s * 0.18), QPointF(s * 0.58, s * 0.18));
    p.drawPolyline(QPolygonF(
        {{s * 0.28, s * 0.3}, {s * 0.33, s * 0.84}, {s * 0.67, s * 0.84}, {s * 0.72, s * 0.3}}));
}

void folderGlyph(QPainter& p, double s)
{
    p.drawPolygon(QPolygonF({{s * 0.16, s * 0.26},
                             {s * 0.4, s * 0.26},
                             {s * 0.48, s * 0.34},
                             {s * 0.84, s * 0.34},
                             {s * 0.84, s * 0.78},
                             {s * 0.16, s * 0.78}}));
}

} // namespace

void drawGlyph(QPainter& p, Glyph glyph, double s, const QColor& colour)
{
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(colour, qMax(1.6, s * 0.1), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    switch (glyph) {
    case Glyph::List:
        listGlyph(p, s);
        break;
    case Glyph::Sliders:
        slidersGlyph(p, s);
        break;
    case Glyph::Power:
        powerGlyph(p, s);
        break;
    case Glyph::SearchPlus:
        searchPlusGlyph(p, s);
        break;
    case Glyph::Info:
        infoGlyph(p, s);
        break;
    case Glyph::Minus:
        p.drawLine(QPointF(s * 0.25, s * 0.5), QPointF(s * 0.75, s * 0.5));
        break;
    case Glyph::Trash:
        trashGlyph(p, s);
        break;
    case Glyph::Plus:
        p.drawLine(QPointF(s * 0.5, s * 0.22), QPointF(s * 0.5, s * 0.78));
        p.drawLine(QPointF(s * 0.22, s * 0.5), QPointF(s * 0.78, s * 0.5));
        break;
    case Glyph::Sheet:
        sheetGlyph(p, s);
        break;
    case Glyph::Disc:
        discGlyph(p, s);
        break;
    case Glyph::Check:
        p.drawPolyline(
            QPolygonF({{s * 0.22, s * 0.52}, {s * 0.42, s * 0.72}, {s * 0.78, s * 0.3}}));
        break;
    case Glyph::Folder:
        folderGlyph(p, s);
        break;
    }
    p.restore();
}

} // namespace nubo::artwork
