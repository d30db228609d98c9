// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ui/HoverPictures.h"

#include "platform/ui/PictureFile.h"

#include <QLabel>

namespace nubo::catalogue {

void HoverPictures::add(QLabel* button, const QString& offPicture, const QString& onPicture)
{
    m_buttons.append({button, offPicture, onPicture});
    const QPixmap picture = platform::loadPicture(m_app, offPicture);
    if (!picture.isNull())
        button->setPixmap(picture);
}

void HoverPictures::light(QLabel* button)
{
    if (button == m_lit)
        return;
    for (Button& b : m_buttons)
        show(b, b.label == button);
    m_lit = button;
}

bool HoverPictures::contains(const QObject* object) const
{
    for (const Button& b : m_buttons) {
        if (b.label == object)
            return true;
    }
    return false;
}

void HoverPictures::show(Button& button, bool on)
{
    if (button.isOn == on)
        return;
    button.isOn = on;
    // A missing picture leaves the button as it is.
    const QPixmap picture = platform::loadPicture(m_app, on ? button.on : button.off);
    if (!picture.isNull())
        button.label->setPixmap(picture);
}

} // namespace nubo::catalogue
