// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ui/QtNotifyArea.h"

namespace nubo::frame {

QtNotifyArea::QtNotifyArea(QObject* parent) : QObject(parent)
{
    connect(&m_icon, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (m_handler)
                    m_handler(reason);
            });
}

void QtNotifyArea::notify(NotifyMessage message, const QIcon& icon, const QString& tip)
{
    switch (message) {
    case NotifyMessage::Add:
    case NotifyMessage::Modify:
        m_icon.setIcon(icon);
        m_icon.setToolTip(tip);
        // Shown even without a notification area: Qt adds it if one appears later.
        if (message == NotifyMessage::Add)
            m_icon.show();
        break;
    case NotifyMessage::Delete:
        m_icon.hide();
        break;
    }
}

bool QtNotifyArea::isIconVisible() const
{
    return m_icon.isVisible() && QSystemTrayIcon::isSystemTrayAvailable();
}

void QtNotifyArea::setActivationHandler(ActivationHandler handler)
{
    m_handler = std::move(handler);
}

} // namespace nubo::frame
