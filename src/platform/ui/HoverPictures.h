// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppFolder.h"

#include <QHash>
#include <QObject>
#include <QPixmap>
#include <QPointer>

class QLabel;
class QWidget;

namespace nubo::platform {

// Picture buttons whose picture follows the pointer: each shows its "off" picture, its "on"
// picture once the pointer enters it and, if it has one, a "hit" picture the window shows
// for a press. Entering a button puts the others back to "off". The window given at
// construction puts them all back when the pointer moves over its bare background; without a
// window, a button goes back to "off" when the pointer leaves it.
//
// The pictures are read once, when a button is added; a missing one leaves the button's
// picture as it was.
class HoverPictures final : public QObject
{
    Q_OBJECT
public:
    enum class Face { Off, On, Hit };

    HoverPictures(const AppFolder& app, QWidget* window);

    void add(QLabel* button, const QString& off, const QString& on, const QString& hit = {});
    // Shows the button's face; lighting it puts the other buttons back to "off".
    void show(QLabel* button, Face face);
    void showAllOff();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Button
    {
        QLabel* label = nullptr;
        QPixmap off;
        QPixmap on;
        QPixmap hit;
        Face face = Face::Off;
    };
    static void setFace(Button& button, Face face);

    const AppFolder& m_app;
    QPointer<QWidget> m_window;
    QHash<const QObject*, Button> m_buttons;
};

} // namespace nubo::platform
