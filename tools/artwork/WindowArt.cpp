// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures of the other windows: backgrounds, image buttons, the logo and the cursor.
#include "Artwork.h"
#include "Palette.h"

#include <QDir>
#include <QPainter>

namespace nubo::artwork {

namespace {

// A window background: a sky band with a row of small clouds over a pale page.
QImage background(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, true);
    QLinearGradient page(0, 0, 0, size.height());
    page.setColorAt(0, QColor(246, 249, 255));
    page.setColorAt(1, QColor(226, 234, 246));
    p.fillRect(image.rect(), page);
    const int band = 48;
    QLinearGradient sky(0, 0, 0, band);
    sky.setColorAt(0, kSky);
    sky.setColorAt(1, kSkyLight);
    p.fillRect(QRect(0, 0, size.width(), band), sky);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 90));
    for (int x = size.width() - 170; x < size.width(); x += 62)
        p.drawPath(cloudPath(QRectF(x, 10 + (x / 62 % 2) * 8, 54, 26)));
    p.setPen(QPen(QColor(196, 212, 236), 2));
    p.drawLine(0, band, size.width(), band);
    return image;
}

// An image button on the page colour: a badge whose state t warms it; a press sinks it.
QImage badgeButton(QSize size, Glyph glyph, double t, bool pressed = false)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(240, 245, 253));
    QPainter p(&image);
    const double r = qMin(size.width(), size.height()) / 2.0 - 2;
    QPointF centre(size.width() / 2.0, size.height() / 2.0);
    if (pressed)
        centre += QPointF(0, 1.5);
    drawBadge(p, centre, pressed ? r - 1 : r, t, glyph);
    return image;
}

// The always-on-top switch: a pill with its knob left (off) or right (on).
QImage toggle(bool on)
{
    QImage image(44, 22, QImage::Format_RGB32);
    image.fill(QColor(240, 245, 253));
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(QPen(on ? kSun : kSkyDeep, 1.5));
    p.setBrush(on ? kSunLight : kSkyLight);
    p.drawRoundedRect(QRectF(1.5, 2.5, 41, 17), 8.5, 8.5);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(on ? 33 : 11, 11), 6.5, 6.5);
    return image;
}

QImage arrow()
{
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, true);
    const QPolygonF shape(
        {{1, 1}, {1, 22}, {6.5, 17}, {10.5, 26}, {14.5, 24.5}, {10.5, 15.5}, {18, 15.5}});
    p.setBrush(QColor(255, 255, 255));
    p.setPen(QPen(kInk, 1.5, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    p.drawPolygon(shape);
    p.setPen(Qt::NoPen);
    p.setBrush(kSkyLight);
    p.drawEllipse(QPointF(20, 24), 5, 3.2);
    p.drawEllipse(QPointF(24, 22.5), 4, 3.6);
    return image;
}

} // namespace

QImage logo(int size)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, true);
    const double s = size / 32.0;
    p.setPen(Qt::NoPen);
    p.setBrush(kSkyDeep);
    p.drawPath(cloudPath(QRectF(0.5 * s, 5 * s, 31 * s, 22 * s)));
    p.setBrush(QColor(255, 255, 255));
    p.drawPath(cloudPath(QRectF(3 * s, 8 * s, 26 * s, 16.5 * s)));
    p.setBrush(kSun);
    p.drawEllipse(QPointF(14 * s, 19.5 * s), 2.6 * s, 2.1 * s);
    p.setPen(QPen(kSun, 1.6 * s, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(16.4 * s, 19.5 * s), QPointF(16.4 * s, 12 * s));
    p.drawLine(QPointF(16.4 * s, 12 * s), QPointF(19.5 * s, 13.5 * s));
    return image;
}

bool writeWindowPictures(const QString& bitmap)
{
    auto jpg = [&bitmap](const QImage& image, const char* name) {
        return saveJpeg(image, bitmap + QLatin1String(name));
    };
    bool ok = jpg(background({640, 480}), "mainform1.jpg");
    ok &= jpg(background({460, 350}), "mainform3.jpg");
    ok &= jpg(background({360, 170}), "mainform4.jpg");
    ok &= jpg(background({500, 340}), "mainform5.jpg");
    ok &= jpg(background({440, 380}), "mainform7.jpg");
    const QSize round(48, 48);
    ok &= jpg(badgeButton(round, Glyph::Trash, 0), "scene0boton1form1.jpg");
    ok &= jpg(badgeButton(round, Glyph::Trash, 1), "scene1boton1form1.jpg");
    ok &= jpg(badgeButton(round, Glyph::Plus, 0), "scene0boton2form1.jpg");
    ok &= jpg(badgeButton(round, Glyph::Plus, 1), "scene1boton2form1.jpg");
    ok &= jpg(badgeButton(round, Glyph::Sheet, 0), "BotonExceloff.jpg");
    ok &= jpg(badgeButton(round, Glyph::Sheet, 1), "BotonExcelon.jpg");
    ok &= jpg(toggle(false), "bool2.jpg");
    ok &= jpg(toggle(true), "bool3.jpg");
    // The search window's buttons; the loader folds case, so one file serves "Bot" and "bot".
    const Glyph search[3] = {Glyph::SearchPlus, Glyph::Disc, Glyph::List};
    const char* names[3][3] = {{"form3Bot1off.jpg", "form3Bot1on.jpg", "form3bot1hit.jpg"},
                               {"form3Bot2off.jpg", "form3Bot2on.jpg", "form3bot2hit.jpg"},
                               {"form3bot3off.jpg", "form3Bot3on.jpg", "form3bot3hit.jpg"}};
    for (int i = 0; i < 3; ++i) {
        ok &= jpg(badgeButton({120, 70}, search[i], 0), names[i][0]);
        ok &= jpg(badgeButton({120, 70}, search[i], 1), names[i][1]);
        ok &= jpg(badgeButton({120, 70}, search[i], 1, true), names[i][2]);
    }
    // Only the "on" face of the drive chooser's button: its plain face is loaded from a name
    // without an extension, which must not exist.
    ok &= jpg(badgeButton({100, 60}, Glyph::Disc, 1), "form4bot1on.jpg");
    ok &= jpg(badgeButton({56, 56}, Glyph::Check, 0), "form7bot1off.jpg");
    ok &= jpg(badgeButton({56, 56}, Glyph::Check, 1), "form7bot1on.jpg");
    const QDir root = QDir(bitmap).filePath(QStringLiteral(".."));
    ok &=
        saveBytes(cursorFile(arrow(), 1, 1), root.filePath(QStringLiteral("Cursors/DEFAULT.CUR")));
    return ok;
}

} // namespace nubo::artwork
