// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/PictureFile.h"

#include <QFileInfo>
#include <QWidget>

namespace nubo::platform {

QPixmap loadPicture(const AppFolder& app, const QString& relative)
{
    const QString path = app.resolve(relative);
    QPixmap pixmap;
    if (QFileInfo(path).isFile())
        pixmap.load(path);
    return pixmap;
}

void setBackgroundPicture(QWidget& window, const AppFolder& app, const QString& relative)
{
    const QPixmap background = loadPicture(app, relative);
    if (background.isNull())
        return;
    QPalette palette = window.palette();
    palette.setBrush(QPalette::Window, background);
    window.setPalette(palette);
    window.setAutoFillBackground(true);
}

} // namespace nubo::platform
