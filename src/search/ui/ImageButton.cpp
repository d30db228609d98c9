// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/ui/ImageButton.h"

#include "platform/ui/PictureFile.h"

#include <QMouseEvent>

namespace nubo::search {

ImageButton::ImageButton(const platform::AppFolder& app, QWidget* parent)
    : QLabel(parent), m_app(app)
{
    setMouseTracking(true);
    setScaledContents(true);
    setCursor(Qt::PointingHandCursor);
}

void ImageButton::loadPicture(const QString& relative)
{
    const QPixmap picture = platform::loadPicture(m_app, relative);
    if (picture.isNull())
        return;
    setPixmap(picture);
    m_pictureName = relative;
}

void ImageButton::enterEvent(QEnterEvent* event)
{
    QLabel::enterEvent(event);
    emit entered();
}

void ImageButton::mouseMoveEvent(QMouseEvent* event)
{
    QLabel::mouseMoveEvent(event);
    event->accept(); // the window's own move handler is for its bare background
}

void ImageButton::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit pressed();
    event->accept();
}

} // namespace nubo::search
