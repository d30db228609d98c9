#include "SearchArtwork.h"

#include <QImageWriter>
#include <QPainter>
#include <QPainterPath>

namespace nubo::artwork {

namespace {

const QColor kSkyTop(120, 170, 232);
const QColor kSkyLow(214, 230, 250);
const QColor kInk(38, 62, 110);
const QColor kGlow(250, 190, 64);

bool save(const QImage& image, const QString& path)
{
    QImageWriter writer(path, "jpeg");
    writer.setQuality(95);
    return writer.write(image.convertToFormat(QImage::Format_RGB32));
}

void drawSymbol(QPainter& p, const QRectF& r, int symbol)
{
    p.setPen(QPen(kInk, 3, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    const QPointF c = r.center();
    const double s = qMin(r.width(), r.height()) * 0.32;
    if (symbol == 1) { // a magnifier
        p.drawEllipse(QPointF(c.x() - s * 0.2, c.y() - s * 0.2), s * 0.6, s * 0.6);
        p.drawLine(QPointF(c.x() + s * 0.25, c.y() + s * 0.25), QPointF(c.x() + s, c.y() + s));
    } else if (symbol == 2) { // a disc
        p.drawEllipse(c, s, s);
        p.drawEllipse(c, s * 0.25, s * 0.25);
    } else { // a list
        for (int i = -1; i <= 1; ++i)
            p.drawLine(QPointF(c.x() - s, c.y() + i * s * 0.6),
                       QPointF(c.x() + s, c.y() + i * s * 0.6));
    }
}

} // namespace

QImage searchBackground(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    QPainter p(&image);
    QLinearGradient sky(0, 0, 0, height);
    sky.setColorAt(0, kSkyTop);
    sky.setColorAt(1, kSkyLow);
    p.fillRect(image.rect(), sky);
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 90));
    for (int i = 0; i < 4; ++i) {
        const double x = width * (0.1 + 0.25 * i), y = height * (0.15 + 0.2 * (i % 2));
        p.drawEllipse(QPointF(x, y), width * 0.12, height * 0.06);
        p.drawEllipse(QPointF(x + width * 0.07, y - height * 0.03), width * 0.08, height * 0.06);
    }
    return image;
}

QImage searchButton(int width, int height, int symbol, int state)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(kSkyLow);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing, true);
    const QRectF face(3, 3, width - 6, height - 6);
    QLinearGradient fill(0, 0, 0, height);
    const QColor top = state == 2 ? QColor(150, 180, 220) : QColor(250, 252, 255);
    const QColor low = state == 2 ? QColor(110, 140, 190) : QColor(200, 216, 240);
    fill.setColorAt(0, top);
    fill.setColorAt(1, low);
    p.setBrush(fill);
    p.setPen(QPen(state == 1 ? kGlow : kInk, state == 1 ? 4 : 2));
    p.drawRoundedRect(face, 14, 14);
    drawSymbol(p, face.translated(state == 2 ? 1 : 0, state == 2 ? 1 : 0), symbol);
    return image;
}

bool writeSearchPictures(const QString& bitmapDir)
{
    bool ok = save(searchBackground(460, 350), bitmapDir + QStringLiteral("mainform3.jpg"));
    ok &= save(searchBackground(360, 170), bitmapDir + QStringLiteral("mainform4.jpg"));
    const char* const states[3] = {"off", "on", "hit"};
    for (int symbol = 1; symbol <= 3; ++symbol) {
        for (int state = 0; state < 3; ++state) {
            ok &=
                save(searchButton(120, 70, symbol, state),
                     bitmapDir + QStringLiteral("form3bot%1%2.jpg").arg(symbol).arg(states[state]));
        }
    }
    ok &= save(searchButton(100, 60, 2, 1), bitmapDir + QStringLiteral("form4bot1on.jpg"));
    return ok;
}

} // namespace nubo::artwork
