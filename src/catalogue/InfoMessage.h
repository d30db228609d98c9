// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

namespace nubo::catalogue {

// The list window's transient message line: a text that stays whole for a delay, then is
// erased from its end ten characters a second by the timer Timer3.
class InfoMessage final : public QObject
{
    Q_OBJECT
public:
    static constexpr int kEraseIntervalMs = 100;

    explicit InfoMessage(QObject* parent = nullptr);

    const QString& text() const { return m_text; }
    quint32 colour() const { return m_colour; } // 0xRRGGBB
    QTimer& timer() { return m_timer; }

    // A new message replaces the old at once and restarts the delay.
    void ShowInfoMessage(const QString& text, qint16 delayMs, quint32 colour);

signals:
    void changed(const QString& text, quint32 colour);

private:
    void tick();

    QString m_text = QStringLiteral("Info Adicional");
    quint32 m_colour = 0x000000;
    QTimer m_timer; // Timer3
};

} // namespace nubo::catalogue
