// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>
#include <QSystemTrayIcon>

#include <functional>

namespace nubo::frame {

// What the icon's owner asks of the notification area.
enum class NotifyMessage { Add, Modify, Delete };

// The desktop's notification area as the tray class sees it: requests carry the icon and the
// tip it shows, and the user's actions on the icon come back as Qt's activation reasons.
class INotifyArea
{
public:
    using ActivationHandler = std::function<void(QSystemTrayIcon::ActivationReason)>;

    virtual ~INotifyArea() = default;

    virtual void notify(NotifyMessage message, const QIcon& icon, const QString& tip) = 0;
    virtual void setActivationHandler(ActivationHandler handler) = 0;
    // The icon is shown in a notification area that exists now.
    virtual bool isIconVisible() const = 0;
};

} // namespace nubo::frame
