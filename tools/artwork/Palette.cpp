// SPDX-License-Identifier: GPL-3.0-or-later
#include "Palette.h"

#include <QFile>
#include <QImageWriter>
#include <QPainter>

namespace nubo::artwork {

QColor mix(const QColor& a, const QColor& b, double t)
{
    return QColor::fromRgbF(float(a.redF() + (b.redF() - a.redF()) * t),
                            float(a.greenF() + (b.greenF() - a.greenF()) * t),
                            float(a.blueF() + (b.blueF() - a.blueF()) * t));
}

QPainterPath cloudPath(const QRectF& r)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    const double w = r.width(), h = r.height();
    path.addEllipse(QRectF(r.left(), r.top() + h * 0.38, w * 0.36, h * 0.58));
    path.addEllipse(QRectF(r.left() + w * 0.16, r.top() + h * 0.12, w * 0.40, h * 0.70));
    path.addEllipse(QRectF(r.left() + w * 0.40, r.top(), w * 0.38, h * 0.72));
    path.addEllipse(QRectF(r.left() + w * 0.62, r.top() + h * 0.30, w * 0.38, h * 0.62));
    path.addRoundedRect(QRectF(r.left() + w * 0.12, r.top() + h * 0.50, w * 0.78, h * 0.50),
                        h * 0.22, h * 0.22);
    return path.simplified();
}

bool saveJpeg(const QImage& image, const QString& path)
{
    QImageWriter writer(path, "jpeg");
    writer.setQuality(95);
    return writer.write(image.convertToFormat(QImage::Format_RGB32));
}

bool saveBytes(const QByteArray& bytes, const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

void drawBadge(QPainter& p, const QPointF& centre, double radius, double t, Glyph glyph)
{
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 40)); // soft shadow
    p.drawEllipse(centre + QPointF(0, radius * 0.08), radius, radius);
    const QColor top = mix(kSkyLight, kSunLight, t);
    const QColor bottom = mix(kSkyDeep, kSun, t);
    QLinearGradient fill(centre.x(), centre.y() - radius, centre.x(), centre.y() + radius);
    fill.setColorAt(0, top);
    fill.setColorAt(1, bottom);
    p.setBrush(fill);
    p.setPen(QPen(QColor(255, 255, 255), qMax(1.5, radius * 0.09)));
    p.drawEllipse(centre, radius * 0.93, radius * 0.93);
    if (t > 0 && t < 1) { // the state ring: how far the button has turned on
        QPen ring(kSun, qMax(2.0, radius * 0.12), Qt::SolidLine, Qt::RoundCap);
        p.setPen(ring);
        p.setBrush(Qt::NoBrush);
        const double r = radius * 0.78;
        p.drawArc(QRectF(centre.x() - r, centre.y() - r, 2 * r, 2 * r), 90 * 16,
                  -int(360 * 16 * t));
    }
    const double s = radius * 1.0;
    p.translate(centre - QPointF(s / 2, s / 2));
    drawGlyph(p, glyph, s, QColor(255, 255, 255));
    p.restore();
}

} // namespace nubo::artwork
