#include "Artwork.h"
#include "SearchArtwork.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImageWriter>
#include <QPainter>
#include <QPainterPath>

namespace nubo::artwork {

namespace {

// The key colour: whatever shares the top-left pixel's colour is cut away from the window.
const QColor kKey(255, 0, 255);
const QColor kSky(86, 140, 214);
const QColor kCloud(246, 249, 255);
const QColor kShade(196, 212, 236);
const QColor kInk(38, 62, 110);

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

QPainterPath cloudPath(const QRectF& r)
{
    QPainterPath path;
    const double w = r.width(), h = r.height();
    path.addEllipse(QRectF(r.left(), r.top() + h * 0.35, w * 0.45, h * 0.6));
    path.addEllipse(QRectF(r.left() + w * 0.2, r.top() + h * 0.05, w * 0.45, h * 0.7));
    path.addEllipse(QRectF(r.left() + w * 0.45, r.top() + h * 0.15, w * 0.4, h * 0.6));
    path.addEllipse(QRectF(r.left() + w * 0.6, r.top() + h * 0.4, w * 0.4, h * 0.55));
    path.addRoundedRect(QRectF(r.left() + w * 0.15, r.top() + h * 0.55, w * 0.7, h * 0.4), 30, 30);
    return path.simplified();
}

} // namespace

QImage mainSkin()
{
    QImage image(400, 300, QImage::Format_RGB32);
    image.fill(kKey);
    QPainter p(&image);
    // No antialiasing at the outline: a clean key colour keeps the region free of islands.
    p.setRenderHint(QPainter::Antialiasing, false);
    const QPainterPath cloud = cloudPath(QRectF(8, 8, 384, 284));
    QLinearGradient fill(0, 0, 0, 300);
    fill.setColorAt(0, kCloud);
    fill.setColorAt(1, kShade);
    p.fillPath(cloud, fill);
    p.setPen(QPen(kSky, 3));
    p.drawPath(cloud);
    return image;
}

QImage roundFace(int width, int height, int frame, int button)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(kCloud);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, true);
    const double glow = frame / 6.0;
    const QColor ring = QColor::fromRgbF(kSky.redF() * (1 - glow) + 0.98 * glow,
                                         kSky.greenF() * (1 - glow) + 0.74 * glow,
                                         kSky.blueF() * (1 - glow) + 0.25 * glow);
    const QRectF disc(2, 2, width - 4, height - 4);
    p.setBrush(ring);
    p.setPen(QPen(kInk, 2));
    p.drawEllipse(disc);
    p.setBrush(kCloud);
    p.setPen(Qt::NoPen);
    const double inset = qMin(width, height) * 0.25;
    p.drawEllipse(disc.adjusted(inset, inset, -inset, -inset));
    p.setBrush(kInk);
    const double dot = 2.0 + button;
    p.drawEllipse(disc.center(), dot, dot);
    return image;
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

namespace {

QImage logo()
{
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.fillPath(cloudPath(QRectF(1, 5, 30, 22)), kSky);
    p.fillPath(cloudPath(QRectF(4, 8, 24, 16)), kCloud);
    return image;
}

QImage arrow()
{
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, true);
    const QPolygonF shape({{1, 1}, {1, 22}, {7, 17}, {11, 26}, {15, 24}, {11, 15}, {19, 15}});
    p.setBrush(kCloud);
    p.setPen(QPen(kInk, 1.5));
    p.drawPolygon(shape);
    return image;
}

} // namespace

bool writeAll(const QString& root)
{
    QDir dir(root);
    bool ok = dir.mkpath(QStringLiteral("Bitmap")) && dir.mkpath(QStringLiteral("Icons")) &&
              dir.mkpath(QStringLiteral("Cursors"));
    const QString bitmap = dir.filePath(QStringLiteral("Bitmap/"));
    ok &= saveJpeg(mainSkin(), bitmap + QStringLiteral("conarrows.JPG"));
    const QSize sizes[5] = {{66, 66}, {86, 84}, {42, 40}, {72, 84}, {40, 40}};
    for (int button = 1; button <= 5; ++button) {
        const QSize s = sizes[button - 1];
        ok &= saveJpeg(roundFace(s.width(), s.height(), 0, button),
                       bitmap + QStringLiteral("scene0boton%1.jpg").arg(button));
    }
    ok &= saveJpeg(roundFace(23, 21, 0, 0), bitmap + QStringLiteral("minimizeoff.jpg"));
    ok &= saveJpeg(roundFace(23, 21, 6, 0), bitmap + QStringLiteral("minimizeon.jpg"));
    ok &= writeSearchPictures(bitmap);
    ok &= saveBytes(iconFile(logo()), dir.filePath(QStringLiteral("Icons/Nubologo.ico")));
    ok &= saveBytes(cursorFile(arrow(), 1, 1), dir.filePath(QStringLiteral("Cursors/DEFAULT.CUR")));
    return ok;
}

} // namespace nubo::artwork
