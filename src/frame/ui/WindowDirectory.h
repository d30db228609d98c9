// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/IFrameWindows.h"

#include <QPointer>
#include <QWidget>

#include <array>
#include <functional>

namespace nubo::frame {

// The real windows behind IFrameWindows, connected one by one by the composition root;
// a window or hook not connected yet does nothing.
class WindowDirectory final : public IFrameWindows
{
public:
    void connectWindow(FrameWindow window, QWidget* widget);
    void setListExit(std::function<bool()> listExit) { m_listExit = std::move(listExit); }
    void setEmptyList(std::function<void()> emptyList) { m_emptyList = std::move(emptyList); }
    void setEndProgram(std::function<void()> endProgram) { m_endProgram = std::move(endProgram); }

    void showWindow(FrameWindow window) override;
    void hideWindow(FrameWindow window) override;
    QRect windowRect(FrameWindow window) const override;
    void moveWindow(FrameWindow window, QPoint topLeft) override;
    void emptyList() override;
    bool runListExit() override;
    void endProgram() override;

private:
    static void placeUnplaced(QWidget* widget);
    QWidget* widget(FrameWindow window) const { return m_windows[std::size_t(window)]; }

    std::array<QPointer<QWidget>, 4> m_windows;
    std::function<bool()> m_listExit;
    std::function<void()> m_emptyList;
    std::function<void()> m_endProgram;
};

} // namespace nubo::frame
