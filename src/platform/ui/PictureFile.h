// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppFolder.h"

#include <QPixmap>

namespace nubo::platform {

// Loads a picture named relative to the application folder ("\bitmap\mainform1.jpg");
// a null pixmap when the file is missing or unreadable.
QPixmap loadPicture(const AppFolder& app, const QString& relative);

} // namespace nubo::platform
