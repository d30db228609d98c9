// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/TrayTip.h"

#include <QByteArray>

namespace nubo::frame {

namespace {

constexpr qsizetype kTipBytes = 63; // a 64-byte field, less its terminating zero

} // namespace

QString trayTip(const QString& text)
{
    QByteArray bytes = text.toLocal8Bit();
    const qsizetype zero = bytes.indexOf('\0');
    if (zero >= 0)
        bytes.truncate(zero);
    bytes.truncate(kTipBytes);
    QString shown = QString::fromLocal8Bit(bytes);
    while (shown.endsWith(QChar::ReplacementCharacter))
        shown.chop(1);
    return shown;
}

} // namespace nubo::frame
