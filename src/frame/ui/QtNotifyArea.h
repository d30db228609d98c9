// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/ui/INotifyArea.h"

namespace nubo::frame {

// The notification area through QSystemTrayIcon. Where the desktop has none, the program goes
// on without the icon.
class QtNotifyArea final : public QObject, public INotifyArea
{
    Q_OBJECT
public:
    explicit QtNotifyArea(QObject* parent = nullptr);

    void notify(NotifyMessage message, const QIcon& icon, const QString& tip) override;
    void setActivationHandler(ActivationHandler handler) override;
    bool isIconVisible() const override;

private:
    QSystemTrayIcon m_icon;
    ActivationHandler m_handler;
};

} // namespace nubo::frame
