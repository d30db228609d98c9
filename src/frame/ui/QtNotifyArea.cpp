// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ui/QtNotifyArea.h"

namespace nubo::frame {

QList<int> trayMessagesFor(QSystemTrayIcon::ActivationReason reason)
{
    switch (reason) {
    case QSystemTrayIcon::Trigger:
        return {513, 514};
    case QSystemTrayIcon::DoubleClick:
        return {515};
    case QSystemTrayIcon::Context:
        return {517};
    case QSystemTrayIcon::MiddleClick:
    case QSystemTrayIcon::Unknown:
        break;
    }
    return {};
}

QtNotifyArea::QtNotifyArea(QObject* parent) : QObject(parent)
{
    connect(&m_icon, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                for (int message : trayMessagesFor(reason))
                    if (m_handler)
                        m_handler(message);
            });
}

bool QtNotifyArea::notify(NotifyMessage message, const TrayRecord& record, const QIcon& icon)
{
    switch (message) {
    case NotifyMessage::Add:
    case NotifyMessage::Modify:
        m_icon.setIcon(icon);
        m_icon.setToolTip(record.shownTip());
        // Shown even without a notification area: Qt adds it if one appears later.
        if (message == NotifyMessage::Add)
            m_icon.show();
        break;
    case NotifyMessage::Delete:
        m_icon.hide();
        break;
    }
    return QSystemTrayIcon::isSystemTrayAvailable();
}

bool QtNotifyArea::isIconVisible() const
{
    return m_icon.isVisible() && QSystemTrayIcon::isSystemTrayAvailable();
}

void QtNotifyArea::setMouseHandler(std::function<void(int)> handler)
{
    m_handler = std::move(handler);
}

} // namespace nubo::frame
