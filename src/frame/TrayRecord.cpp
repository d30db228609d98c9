// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/TrayRecord.h"

#include <cmath>

namespace nubo::frame {

void TrayRecord::setTip(const QString& text)
{
    m_tipText = text;
    QByteArray field = text.toLocal8Bit();
    field.append('\0');
    field = field.left(kTipBytes);
    field.append(QByteArray(kTipBytes - field.size(), ' '));
    m_tipField = field;
}

QString TrayRecord::shownTip() const
{
    QByteArray bytes = m_tipField.left(kTipBytes - 1);
    const int zero = bytes.indexOf('\0');
    if (zero >= 0)
        bytes.truncate(zero);
    // A cut through a multi-byte character leaves an incomplete tail, which is not shown.
    QString shown = QString::fromLocal8Bit(bytes);
    while (shown.endsWith(QChar::ReplacementCharacter))
        shown.chop(1);
    return shown;
}

std::optional<TrayEvent> TrayRecord::receive(double x)
{
    m_previous = m_last;
    m_last = int(std::nearbyint(x)); // whole-number conversion rounds halves to even
    return eventFor(m_last);
}

std::optional<TrayEvent> TrayRecord::eventFor(int message)
{
    switch (message) {
    case 513:
        return TrayEvent::LButtonDown;
    case 514:
        return TrayEvent::LButtonUp;
    case 515:
        return TrayEvent::LButtonDblClk;
    case 516:
        return TrayEvent::RButtonDown;
    case 517:
        return TrayEvent::RButtonUp;
    case 518:
        return TrayEvent::RButtonDblClk;
    default:
        return std::nullopt;
    }
}

} // namespace nubo::frame
