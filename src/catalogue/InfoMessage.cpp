// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/InfoMessage.h"

namespace nubo::catalogue {

InfoMessage::InfoMessage(QObject* parent) : QObject(parent)
{
    m_timer.setObjectName(QStringLiteral("Timer3"));
    connect(&m_timer, &QTimer::timeout, this, &InfoMessage::tick);
}

void InfoMessage::ShowInfoMessage(const QString& text, qint16 delayMs, quint32 colour)
{
    m_timer.stop();
    m_timer.setInterval(qMax<int>(delayMs, 0));
    m_text = text;
    m_colour = colour;
    emit changed(m_text, m_colour);
    m_timer.start();
}

void InfoMessage::tick()
{
    m_timer.setInterval(kEraseIntervalMs);
    if (m_text.isEmpty()) {
        m_timer.stop();
        return;
    }
    m_text.chop(1);
    emit changed(m_text, m_colour);
}

} // namespace nubo::catalogue
