// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QString>

namespace nubo::artwork {

// Writes every picture below root in the resource layout (Bitmap/, Icons/, Cursors/).
bool writeAll(const QString& root);
// Writes the desktop's icon below root in the hicolor layout (48x48/apps/nubo.png, ...).
bool writeDesktopIcons(const QString& root);

// The main window's skin. Its outline follows an 8-pixel grid and the band along it holds
// only grey tones, so the JPEG keeps the key colour exact: every 8x8 block of key colour is
// flat, and the colour planes near the outline are flat grey.
QImage mainSkin();
// Face `frame` (0 idle .. 6 open) of round button `button` (1..5), cut from the skin.
QImage buttonFace(const QImage& skin, int button, int frame);
QImage minimizeFace(const QImage& skin, bool on);

// The other windows' pictures, written into the bitmap folder.
bool writeWindowPictures(const QString& bitmap);

QImage logo(int size);
// A .CUR file: an icon directory of type 2 whose entry carries the hot spot.
QByteArray cursorFile(const QImage& image, int hotX, int hotY);
QByteArray iconFile(const QImage& image);

} // namespace nubo::artwork
