#pragma once

#include <QImage>
#include <QString>

namespace nubo::artwork {

// Writes every picture below root in the resource layout (Bitmap/, Icons/, Cursors/).
bool writeAll(const QString& root);

QImage mainSkin();
QImage roundFace(int width, int height, int frame, int button);

// A .CUR file: an icon directory of type 2 whose entry carries the hot spot.
QByteArray cursorFile(const QImage& image, int hotX, int hotY);
QByteArray iconFile(const QImage& image);

} // namespace nubo::artwork
