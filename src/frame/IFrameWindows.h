// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QRect>

namespace nubo::frame {

// The windows that the main window and the tray menu open and close.
enum class FrameWindow { List, Options, Search, Author };

// How the main window reaches the other windows and ends the program; the composition root
// connects the real windows, tests pass a fake. A window not connected yet does nothing.
class IFrameWindows
{
public:
    virtual ~IFrameWindows() = default;

    virtual void showWindow(FrameWindow window) = 0;
    virtual void hideWindow(FrameWindow window) = 0;
    // The window's outer rectangle on the screen (empty when it is not connected).
    virtual QRect windowRect(FrameWindow window) const = 0;
    virtual void moveWindow(FrameWindow window, QPoint topLeft) = 0;
    // The exit button's step: the catalogue list is emptied without any question.
    virtual void emptyList() = 0;
    // The list window's exit; false when the list window kept its rows (a save the user asked
    // for did not happen), and the program goes on.
    virtual bool runListExit() = 0;
    virtual void endProgram() = 0;
};

} // namespace nubo::frame
