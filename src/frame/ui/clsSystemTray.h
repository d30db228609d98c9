// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/TrayRecord.h"
#include "frame/ui/INotifyArea.h"

#include <QIcon>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace nubo::frame {

// The notification-area icon: keeps its record, adds, modifies and removes it, and turns
// the mouse messages that reach its hidden picture box into six events.
class clsSystemTray final : public QObject
{
    Q_OBJECT
public:
    explicit clsSystemTray(INotifyArea& area, QObject* parent = nullptr);

    void setToolTipText(const QString& text);
    QString ToolTipText() const { return m_record.tipText(); }
    void AddIconToSystemTray();
    QIcon Icon() const { return m_icon; }
    void setIcon(const QIcon& icon);
    void RemoveIconFromSystemTray();
    void setPPictureBox(QWidget* box);
    QWidget* PPictureBox() const { return m_box; }

    // A mouse move on the hidden picture box: its x coordinate is the mouse message.
    void boxMouseMove(double x);

    const TrayRecord& record() const { return m_record; }
    bool isShown() const { return m_shown; }
    // The icon stands in a notification area now, where the user can click it.
    bool isIconVisible() const { return m_area.isIconVisible(); }
    bool lastResult() const { return m_lastResult; }

signals:
    void LButtonDblClk();
    void LButtonDown();
    void LButtonUp();
    void RButtonDblClk();
    void RButtonDown();
    void RButtonUp();

private:
    void send(NotifyMessage message);

    INotifyArea& m_area;
    TrayRecord m_record;
    QIcon m_icon;
    QPointer<QWidget> m_box;
    bool m_shown = false;
    bool m_lastResult = false;
};

} // namespace nubo::frame
