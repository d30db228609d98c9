// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/ui/INotifyArea.h"

#include <QList>
#include <QSystemTrayIcon>

namespace nubo::frame {

// The mouse messages that one of Qt's activation reasons stands for: a click is the left
// button going down and up, a double click the left double click, the context request the
// right button's release.
QList<int> trayMessagesFor(QSystemTrayIcon::ActivationReason reason);

// The notification area through QSystemTrayIcon. Where the desktop has none, requests
// answer false and the program goes on without the icon.
class QtNotifyArea final : public QObject, public INotifyArea
{
    Q_OBJECT
public:
    explicit QtNotifyArea(QObject* parent = nullptr);

    bool notify(NotifyMessage message, const TrayRecord& record, const QIcon& icon) override;
    void setMouseHandler(std::function<void(int message)> handler) override;
    bool isIconVisible() const override;

private:
    QSystemTrayIcon m_icon;
    std::function<void(int)> m_handler;
};

} // namespace nubo::frame
