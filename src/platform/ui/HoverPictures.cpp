// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/HoverPictures.h"

#include "platform/ui/PictureFile.h"

#include <QEvent>
#include <QLabel>

namespace nubo::platform {

HoverPictures::HoverPictures(const AppFolder& app, QWidget* window) : m_app(app), m_window(window)
{
    if (!window)
        return;
    window->setMouseTracking(true); // moves without a button held reach it too
    window->installEventFilter(this);
}

void HoverPictures::add(QLabel* button, const QString& off, const QString& on, const QString& hit)
{
    const auto load = [this](const QString& name) {
        return name.isEmpty() ? QPixmap() : loadPicture(m_app, name);
    };
    const Button& added = m_buttons[button] = {button, load(off), load(on), load(hit)};
    if (!added.off.isNull())
        button->setPixmap(added.off);
    button->installEventFilter(this);
}

void HoverPictures::show(QLabel* label, Face face)
{
    for (Button& button : m_buttons) {
        if (button.label == label)
            setFace(button, face);
        else if (face == Face::On)
            setFace(button, Face::Off);
    }
}

void HoverPictures::showAllOff()
{
    for (Button& button : m_buttons)
        setFace(button, Face::Off);
}

void HoverPictures::setFace(Button& button, Face face)
{
    if (button.face == face)
        return;
    button.face = face;
    const QPixmap& picture = face == Face::On    ? button.on
                             : face == Face::Hit ? button.hit
                                                 : button.off;
    if (!picture.isNull())
        button.label->setPixmap(picture);
}

bool HoverPictures::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (watched == m_window) {
        if (type == QEvent::MouseMove)
            showAllOff();
        return false;
    }
    const auto button = m_buttons.find(watched);
    if (button == m_buttons.end())
        return false;
    if (type == QEvent::Enter)
        show(button->label, Face::On);
    else if (type == QEvent::Leave && !m_window)
        setFace(*button, Face::Off);
    else if (type == QEvent::MouseMove) {
        event->accept(); // a move over a button is not one over the bare window
        return true;
    }
    return false;
}

} // namespace nubo::platform
