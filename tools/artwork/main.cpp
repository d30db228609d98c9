// Draws the program's pictures (skin, button faces, cursor, icon) into a resource folder.
// Usage: nubo-artwork OUTPUT_DIR. The output depends only on this code, so it is reproducible.
#include "Artwork.h"

#include <QGuiApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fputs("uso: nubo-artwork CARPETA\n", stderr);
        return 1;
    }
    return nubo::artwork::writeAll(QString::fromLocal8Bit(argv[1])) ? 0 : 2;
}
