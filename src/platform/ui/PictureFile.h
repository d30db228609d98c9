// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppFolder.h"

#include <QPixmap>

class QWidget;

namespace nubo::platform {

// Loads a picture named relative to the application folder ("\bitmap\mainform1.jpg");
// a null pixmap when the file is missing or unreadable.
QPixmap loadPicture(const AppFolder& app, const QString& relative);
// Paints the window's background with that picture; a missing picture leaves it as it was.
void setBackgroundPicture(QWidget& window, const AppFolder& app, const QString& relative);

} // namespace nubo::platform
