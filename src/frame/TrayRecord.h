// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace nubo::frame {

// The six mouse events of the notification-area icon.
enum class TrayEvent {
    LButtonDblClk,
    LButtonDown,
    LButtonUp,
    RButtonDblClk,
    RButtonDown,
    RButtonUp
};

// What the icon's owner asks of the notification area.
enum class NotifyMessage { Add = 0, Modify = 1, Delete = 2 };

// The notification record of the tray icon (the first, 88-byte layout with 8-bit text) and
// the decoding of the mouse messages that arrive for it.
class TrayRecord final
{
public:
    static constexpr int kSize = 88;
    static constexpr int kIconId = 2;
    static constexpr int kFlags = 7; // message, icon and tip are valid
    static constexpr int kCallbackMessage = 512;
    static constexpr int kTipBytes = 64;

    int size = kSize;
    quint64 window = 0;
    int id = kIconId;
    int flags = kFlags;
    int callbackMessage = kCallbackMessage;
    quint64 icon = 0;

    // Stores the text and fills the tip field: the text and a zero byte, cut or padded with
    // blanks to exactly 64 bytes.
    void setTip(const QString& text);
    const QString& tipText() const { return m_tipText; }
    const QByteArray& tipField() const { return m_tipField; }
    // What the notification area shows: the field up to its zero byte, at most 63 bytes.
    QString shownTip() const;

    // A mouse message delivered as the x coordinate of a move on the hidden box: keeps it
    // as the last message (the one before as previous) and names its event, if any.
    std::optional<TrayEvent> receive(double x);
    int lastMessage() const { return m_last; }
    int previousMessage() const { return m_previous; }

    static std::optional<TrayEvent> eventFor(int message);

private:
    QString m_tipText;
    QByteArray m_tipField = QByteArray(kTipBytes, '\0');
    int m_last = 0;
    int m_previous = 0;
};

} // namespace nubo::frame
