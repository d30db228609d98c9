#pragma once

#include <QImage>
#include <QString>

namespace nubo::artwork {

// The search window's and the CD-ROM chooser's background and button pictures.
bool writeSearchPictures(const QString& bitmapDir);

QImage searchBackground(int width, int height);
// state: 0 off, 1 on (pointer over it), 2 hit (pressed); symbol: 1 search, 2 disc, 3 list.
QImage searchButton(int width, int height, int symbol, int state);

} // namespace nubo::artwork
