// SPDX-License-Identifier: GPL-3.0-or-later
// Draws the program's pictures (skins, button faces, cursor, icon) into a resource folder and
// the desktop's icons into an icon folder, then checks the main skin as shipped.
// Usage: nubo-artwork RESOURCE_DIR [ICON_DIR]. The output depends only on this code and the
// installed fonts, so it is reproducible.
#include "Artwork.h"
#include "frame/RegionFromImage.h"

#include <QGuiApplication>
#include <QRegion>

#include <cstdio>

namespace {

// Reports the shipped skin's region and whether every key pixel survived the JPEG.
bool checkSkin(const QString& root)
{
    const QImage source = nubo::artwork::mainSkin();
    const QImage shipped(root + QStringLiteral("/Bitmap/conarrows.JPG"));
    if (shipped.isNull())
        return false;
    const QRgb key = shipped.pixel(0, 0) & 0xffffff;
    int disturbed = 0;
    for (int y = 0; y < source.height(); ++y)
        for (int x = 0; x < source.width(); ++x) {
            const bool wasKey = (source.pixel(x, y) & 0xffffff) == 0;
            const bool isKey = (shipped.pixel(x, y) & 0xffffff) == key;
            disturbed += wasKey != isKey;
        }
    const QList<QRect> rects =
        nubo::frame::RegionDesdeImagen(shipped.width(), shipped.height(), [&shipped](int x, int y) {
            return quint32(shipped.pixel(x, y)) & 0xffffffu;
        });
    QRegion region;
    for (const QRect& r : rects)
        region += r;
    std::printf("skin %dx%d: %lld runs, region of %d rectangles, %d pixels changed key state\n",
                shipped.width(), shipped.height(), qlonglong(rects.size()), region.rectCount(),
                disturbed);
    return disturbed == 0;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 2 && argc != 3) {
        std::fputs("uso: nubo-artwork CARPETA [CARPETA_DE_ICONOS]\n", stderr);
        return 1;
    }
    const QString root = QString::fromLocal8Bit(argv[1]);
    if (!nubo::artwork::writeAll(root))
        return 2;
    if (argc == 3 && !nubo::artwork::writeDesktopIcons(QString::fromLocal8Bit(argv[2])))
        return 2;
    return checkSkin(root) ? 0 : 3;
}
