// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::platform {

// A font as the font dialog gives it: face, size, effects and colour.
struct FontChoice
{
    QString name;
    double pointSize = 10.0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    quint32 color = 0x000000; // 0xRRGGBB

    bool operator==(const FontChoice&) const = default;
};

} // namespace nubo::platform
