// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLocale>
#include <QString>

namespace nubo::search {

// The two captions of the drive-space labels.
struct DriveSpaceCaptions
{
    QString total; // LbltotalBytes
    QString free;  // LblBytesLibres
};

// Total and free space in megabytes and gigabytes. The total is shown whole and the free
// space with up to two decimals; numbers use the locale's decimal sign, no trailing zeros.
DriveSpaceCaptions driveSpaceCaptions(quint64 totalBytes, quint64 freeBytes, const QLocale& locale);

} // namespace nubo::search
