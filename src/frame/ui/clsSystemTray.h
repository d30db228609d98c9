// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/ui/INotifyArea.h"

#include <QIcon>
#include <QObject>

namespace nubo::frame {

// The notification-area icon: adds, modifies and removes it, and turns the user's actions on
// it into mouse-button events. Qt reports a click as the left button going down and up, a
// double click as the left double click and the context request as the right button's
// release; the right button's press and double click never arise.
class clsSystemTray final : public QObject
{
    Q_OBJECT
public:
    explicit clsSystemTray(INotifyArea& area, QObject* parent = nullptr);

    // Before AddIconToSystemTray the tip and the icon are only stored; after it, the icon
    // shown changes at once.
    void setToolTipText(const QString& text);
    void setIcon(const QIcon& icon);
    void AddIconToSystemTray();
    void RemoveIconFromSystemTray();

    // The icon stands in a notification area now, where the user can click it.
    bool isIconVisible() const { return m_area.isIconVisible(); }

signals:
    void LButtonDblClk();
    void LButtonDown();
    void LButtonUp();
    void RButtonUp();

private:
    void send(NotifyMessage message);
    void activated(QSystemTrayIcon::ActivationReason reason);

    INotifyArea& m_area;
    QString m_tip;
    QIcon m_icon;
    bool m_shown = false;
};

} // namespace nubo::frame
