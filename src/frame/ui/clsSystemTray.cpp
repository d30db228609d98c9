// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ui/clsSystemTray.h"

namespace nubo::frame {

clsSystemTray::clsSystemTray(INotifyArea& area, QObject* parent) : QObject(parent), m_area(area)
{
    m_area.setMouseHandler([this](int message) { boxMouseMove(message); });
}

void clsSystemTray::send(NotifyMessage message)
{
    // The answer is kept but not acted upon.
    m_lastResult = m_area.notify(message, m_record, m_icon);
}

void clsSystemTray::setToolTipText(const QString& text)
{
    m_record.setTip(text);
    if (m_shown)
        send(NotifyMessage::Modify);
}

void clsSystemTray::AddIconToSystemTray()
{
    send(NotifyMessage::Add);
    m_shown = true;
}

void clsSystemTray::setIcon(const QIcon& icon)
{
    m_icon = icon;
    m_record.icon = quint64(icon.cacheKey());
    if (m_shown)
        send(NotifyMessage::Modify);
}

void clsSystemTray::RemoveIconFromSystemTray()
{
    m_record.size = TrayRecord::kSize;
    m_record.window = m_box ? quint64(m_box->effectiveWinId()) : 0;
    m_record.id = TrayRecord::kIconId;
    send(NotifyMessage::Delete);
}

void clsSystemTray::setPPictureBox(QWidget* box)
{
    m_box = box;
    if (!box)
        return;
    box->hide();
    m_record.window = quint64(box->effectiveWinId());
}

void clsSystemTray::boxMouseMove(double x)
{
    const std::optional<TrayEvent> event = m_record.receive(x);
    if (!event)
        return;
    switch (*event) {
    case TrayEvent::LButtonDblClk:
        emit LButtonDblClk();
        break;
    case TrayEvent::LButtonDown:
        emit LButtonDown();
        break;
    case TrayEvent::LButtonUp:
        emit LButtonUp();
        break;
    case TrayEvent::RButtonDblClk:
        emit RButtonDblClk();
        break;
    case TrayEvent::RButtonDown:
        emit RButtonDown();
        break;
    case TrayEvent::RButtonUp:
        emit RButtonUp();
        break;
    }
}

} // namespace nubo::frame
