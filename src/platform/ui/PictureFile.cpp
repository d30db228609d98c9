// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/PictureFile.h"

#include <QFileInfo>

namespace nubo::platform {

QPixmap loadPicture(const AppFolder& app, const QString& relative)
{
    const QString path = app.resolve(relative);
    QPixmap pixmap;
    if (QFileInfo(path).isFile())
        pixmap.load(path);
    return pixmap;
}

} // namespace nubo::platform
