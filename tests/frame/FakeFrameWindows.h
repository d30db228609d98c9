// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/IFrameWindows.h"
#include "frame/ui/INotifyArea.h"

#include <QStringList>

#include <array>

// Records what the main window asks of the other windows, in order.
class FakeFrameWindows final : public nubo::frame::IFrameWindows
{
public:
    QStringList calls;
    std::array<QRect, 4> rects{QRect(0, 0, 300, 200), QRect(0, 0, 500, 340), QRect(0, 0, 300, 200),
                               QRect(0, 0, 420, 300)};

    static QString name(nubo::frame::FrameWindow w)
    {
        return QStringList{"List", "Options", "Search", "Author"}.at(int(w));
    }
    void showWindow(nubo::frame::FrameWindow w) override { calls << "show " + name(w); }
    void hideWindow(nubo::frame::FrameWindow w) override { calls << "hide " + name(w); }
    QRect windowRect(nubo::frame::FrameWindow w) const override { return rects[std::size_t(w)]; }
    void moveWindow(nubo::frame::FrameWindow w, QPoint topLeft) override
    {
        calls << "move " + name(w);
        rects[std::size_t(w)].moveTopLeft(topLeft);
    }
    void emptyList() override { calls << "empty list"; }
    bool listExitGoesOn = true;
    bool runListExit() override
    {
        calls << "list exit";
        return listExitGoesOn;
    }
    void endProgram() override { calls << "end"; }
};

// Records the requests made of the notification area.
class FakeNotifyArea final : public nubo::frame::INotifyArea
{
public:
    QList<nubo::frame::NotifyMessage> messages;
    QStringList tips;
    ActivationHandler handler;
    bool available = true;

    void notify(nubo::frame::NotifyMessage message, const QIcon&, const QString& tip) override
    {
        messages << message;
        tips << tip;
        if (message != nubo::frame::NotifyMessage::Modify)
            shown = message == nubo::frame::NotifyMessage::Add;
    }
    void setActivationHandler(ActivationHandler h) override { handler = std::move(h); }
    bool isIconVisible() const override { return available && shown; }
    bool shown = false;
};
