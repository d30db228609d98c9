// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ui/WindowDirectory.h"

#include <QScreen>

namespace nubo::frame {

void WindowDirectory::connectWindow(FrameWindow window, QWidget* widget)
{
    m_windows[std::size_t(window)] = widget;
    placeUnplaced(widget);
}

// A window never moved yet is centred on its screen, so that its first opening effect grows
// where it will appear; later effects find it where it was last.
void WindowDirectory::placeUnplaced(QWidget* widget)
{
    if (!widget || widget->isVisible() || widget->testAttribute(Qt::WA_Moved))
        return;
    if (const QScreen* screen = widget->screen()) {
        QRect placed(QPoint(), widget->frameGeometry().size());
        placed.moveCenter(screen->availableGeometry().center());
        widget->move(placed.topLeft());
    }
}

void WindowDirectory::showWindow(FrameWindow window)
{
    if (QWidget* w = widget(window)) {
        w->showNormal();
        w->raise();
        w->activateWindow();
    }
}

void WindowDirectory::hideWindow(FrameWindow window)
{
    if (QWidget* w = widget(window))
        w->hide();
}

QRect WindowDirectory::windowRect(FrameWindow window) const
{
    const QWidget* w = widget(window);
    return w ? w->frameGeometry() : QRect();
}

void WindowDirectory::moveWindow(FrameWindow window, QPoint topLeft)
{
    if (QWidget* w = widget(window))
        w->move(topLeft);
}

void WindowDirectory::emptyList()
{
    if (m_emptyList)
        m_emptyList();
}

bool WindowDirectory::runListExit()
{
    return !m_listExit || m_listExit();
}

void WindowDirectory::endProgram()
{
    if (m_endProgram)
        m_endProgram();
}

} // namespace nubo::frame
