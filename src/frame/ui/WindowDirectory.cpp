#include "frame/ui/WindowDirectory.h"

namespace nubo::frame {

void WindowDirectory::connectWindow(FrameWindow window, QWidget* widget)
{
    m_windows[std::size_t(window)] = widget;
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

bool WindowDirectory::isWindowVisible(FrameWindow window) const
{
    const QWidget* w = widget(window);
    return w && w->isVisible();
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

void WindowDirectory::runListExit()
{
    if (m_listExit)
        m_listExit();
}

void WindowDirectory::endProgram()
{
    if (m_endProgram)
        m_endProgram();
}

} // namespace nubo::frame
