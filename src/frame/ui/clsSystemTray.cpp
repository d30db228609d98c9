// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ui/clsSystemTray.h"

#include "frame/TrayTip.h"

namespace nubo::frame {

clsSystemTray::clsSystemTray(INotifyArea& area, QObject* parent) : QObject(parent), m_area(area)
{
    m_area.setActivationHandler(
        [this](QSystemTrayIcon::ActivationReason reason) { activated(reason); });
}

void clsSystemTray::send(NotifyMessage message)
{
    m_area.notify(message, m_icon, trayTip(m_tip));
}

void clsSystemTray::setToolTipText(const QString& text)
{
    m_tip = text;
    if (m_shown)
        send(NotifyMessage::Modify);
}

void clsSystemTray::setIcon(const QIcon& icon)
{
    m_icon = icon;
    if (m_shown)
        send(NotifyMessage::Modify);
}

void clsSystemTray::AddIconToSystemTray()
{
    send(NotifyMessage::Add);
    m_shown = true;
}

void clsSystemTray::RemoveIconFromSystemTray()
{
    send(NotifyMessage::Delete);
}

void clsSystemTray::activated(QSystemTrayIcon::ActivationReason reason)
{
    switch (reason) {
    case QSystemTrayIcon::Trigger:
        emit LButtonDown();
        emit LButtonUp();
        break;
    case QSystemTrayIcon::DoubleClick:
        emit LButtonDblClk();
        break;
    case QSystemTrayIcon::Context:
        emit RButtonUp();
        break;
    case QSystemTrayIcon::MiddleClick:
    case QSystemTrayIcon::Unknown:
        break;
    }
}

} // namespace nubo::frame
