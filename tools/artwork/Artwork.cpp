// SPDX-License-Identifier: GPL-3.0-or-later
#include "Artwork.h"

#include "Palette.h"
#include "frame/SkinLayout.h"

#include <QBuffer>
#include <QDir>
#include <QImageWriter>
#include <QPainter>

namespace nubo::artwork {

using frame::SkinLayout;

namespace {

constexpr int kCell = 8;
constexpr std::array<Glyph, 5> kGlyphs = {Glyph::List, Glyph::Sliders, Glyph::Power,
                                          Glyph::SearchPlus, Glyph::Info};
// The hot circles' centres and radii, so each badge fills its circle.
constexpr std::array<double, 15> kCircles = {33, 33, 30, 43, 42, 40, 21, 20,
                                             20, 36, 42, 35, 20, 20, 19};

QColor cloudShade(int y, int height)
{
    return mix(kCloudTop, kCloudBottom, double(y) / height);
}

// The skin's cloud: four round lobes over a flat-bottomed body.
QPainterPath skinCloud()
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addEllipse(QPointF(92, 178), 72, 72);
    path.addEllipse(QPointF(170, 118), 80, 80);
    path.addEllipse(QPointF(262, 100), 88, 88);
    path.addEllipse(QPointF(340, 168), 70, 70);
    path.addRoundedRect(QRectF(40, 170, 340, 122), 56, 56);
    return path.simplified();
}

// The cloud cut to the grid: a cell belongs to it when its centre lies in the soft cloud.
QImage gridCloud(QSize size)
{
    const QPainterPath cloud = skinCloud();
    QImage inside(size, QImage::Format_Grayscale8);
    inside.fill(0);
    for (int cy = 0; cy < size.height(); cy += kCell)
        for (int cx = 0; cx < size.width(); cx += kCell)
            if (cloud.contains(QPointF(cx + kCell / 2.0, cy + kCell / 2.0)))
                for (int y = cy; y < qMin(cy + kCell, size.height()); ++y)
                    for (int x = cx; x < qMin(cx + kCell, size.width()); ++x)
                        inside.scanLine(y)[x] = 255;
    return inside;
}

bool isInside(const QImage& inside, int x, int y)
{
    return inside.rect().contains(x, y) && inside.constScanLine(y)[x] != 0;
}

// Distance in pixels (up to limit) from a pixel to the nearest pixel outside the cloud.
int edgeDistance(const QImage& inside, int x, int y, int limit)
{
    for (int d = 1; d <= limit; ++d)
        for (int i = -d; i <= d; ++i)
            if (!isInside(inside, x + i, y - d) || !isInside(inside, x + i, y + d) ||
                !isInside(inside, x - d, y + i) || !isInside(inside, x + d, y + i))
                return d;
    return limit + 1;
}

void paintCloud(QImage& image, const QImage& inside)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            if (!isInside(inside, x, y))
                continue;
            const int d = edgeDistance(inside, x, y, 4);
            QColor c = cloudShade(y, image.height());
            if (d <= 2)
                c = kRim;
            else if (d <= 4)
                c = mix(c, QColor(255, 255, 255), 0.7);
            image.setPixelColor(x, y, c);
        }
}

void paintTitle(QPainter& p)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setBold(true);
    font.setPixelSize(54);
    p.setFont(font);
    p.setPen(kInk);
    p.drawText(QRectF(140, 56, 220, 64), Qt::AlignCenter, QStringLiteral("nubo"));
    font.setBold(false);
    font.setPixelSize(13);
    p.setFont(font);
    p.setPen(kSky);
    p.drawText(QRectF(130, 116, 240, 20), Qt::AlignCenter, QStringLiteral("tu música, catalogada"));
}

} // namespace

QImage mainSkin()
{
    const QSize size = SkinLayout::skinSize;
    QImage image(size, QImage::Format_RGB32);
    image.fill(kKey);
    const QImage inside = gridCloud(size);
    paintCloud(image, inside);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setRenderHint(QPainter::TextAntialiasing, true);
    paintTitle(p);
    for (std::size_t i = 0; i < SkinLayout::buttons.size(); ++i) {
        const QRect box = SkinLayout::buttons[i];
        const QPointF centre(box.left() + kCircles[i * 3], box.top() + kCircles[i * 3 + 1]);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 22)); // the button's seat on the cloud
        p.drawEllipse(centre, kCircles[i * 3 + 2] + 3, kCircles[i * 3 + 2] + 3);
    }
    return image;
}

QImage buttonFace(const QImage& skin, int button, int frame)
{
    const std::size_t i = std::size_t(button - 1);
    const QRect box = SkinLayout::buttons[i];
    QImage face = skin.copy(box);
    QPainter p(&face);
    drawBadge(p, QPointF(kCircles[i * 3], kCircles[i * 3 + 1]), kCircles[i * 3 + 2] - 1,
              frame / 6.0, kGlyphs[i]);
    return face;
}

QImage minimizeFace(const QImage& skin, bool on)
{
    QImage face = skin.copy(SkinLayout::minimize);
    QPainter p(&face);
    drawBadge(p, QPointF(11.5, 10.5), 8.5, on ? 1.0 : 0.0, Glyph::Minus);
    return face;
}

QByteArray iconFile(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "ico");
    writer.write(image.convertToFormat(QImage::Format_ARGB32));
    return bytes;
}

QByteArray cursorFile(const QImage& image, int hotX, int hotY)
{
    QByteArray bytes = iconFile(image);
    if (bytes.size() < 22)
        return {};
    bytes[2] = 2; // resource type: cursor
    bytes[10] = char(hotX & 0xff);
    bytes[11] = char(hotX >> 8);
    bytes[12] = char(hotY & 0xff);
    bytes[13] = char(hotY >> 8);
    return bytes;
}

bool writeAll(const QString& root)
{
    QDir dir(root);
    bool ok = dir.mkpath(QStringLiteral("Bitmap")) && dir.mkpath(QStringLiteral("Icons")) &&
              dir.mkpath(QStringLiteral("Cursors"));
    const QString bitmap = dir.filePath(QStringLiteral("Bitmap/"));
    const QImage skin = mainSkin();
    ok &= saveJpeg(skin, bitmap + QStringLiteral("conarrows.JPG"));
    for (int button = 1; button <= 5; ++button)
        for (int frame = 0; frame <= 6; ++frame)
            ok &= saveJpeg(buttonFace(skin, button, frame),
                           bitmap + QStringLiteral("scene%1boton%2.jpg").arg(frame).arg(button));
    ok &= saveJpeg(minimizeFace(skin, false), bitmap + QStringLiteral("minimizeoff.jpg"));
    ok &= saveJpeg(minimizeFace(skin, true), bitmap + QStringLiteral("minimizeon.jpg"));
    ok &= writeWindowPictures(bitmap);
    ok &= saveBytes(iconFile(logo(32)), dir.filePath(QStringLiteral("Icons/Nubologo.ico")));
    return ok;
}

bool writeDesktopIcons(const QString& root)
{
    bool ok = true;
    for (int size : {48, 128, 256}) {
        const QString folder = QStringLiteral("%1/%2x%2/apps").arg(root).arg(size);
        ok &= QDir().mkpath(folder) && logo(size).save(folder + QStringLiteral("/nubo.png"), "PNG");
    }
    return ok;
}

} // namespace nubo::artwork
