// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppFolder.h"

#include <QList>
#include <QString>

class QLabel;
class QObject;

namespace nubo::catalogue {

// Image buttons with an "off" picture and a picture for when the pointer is over them; at
// most one is lit, and a picture is only reloaded when it changes.
class HoverPictures final
{
public:
    explicit HoverPictures(const platform::AppFolder& app) : m_app(app) {}

    void add(QLabel* button, const QString& offPicture, const QString& onPicture);
    // Lights button and puts the others back to "off"; nullptr puts all back.
    void light(QLabel* button);
    bool contains(const QObject* object) const;
    QLabel* lit() const { return m_lit; }

private:
    struct Button
    {
        QLabel* label;
        QString off;
        QString on;
        bool isOn = false;
    };
    void show(Button& button, bool on);

    const platform::AppFolder& m_app;
    QList<Button> m_buttons;
    QLabel* m_lit = nullptr;
};

} // namespace nubo::catalogue
