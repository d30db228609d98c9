// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::database {

// The spreadsheet's own border numbers (line style and weight), as the configuration passes them.
namespace excel {
inline constexpr int kLineStyleNone = -4142;
inline constexpr int kContinuous = 1;
inline constexpr int kDashDot = 4;
inline constexpr int kDashDotDot = 5;
inline constexpr int kSlantDashDot = 13;
inline constexpr int kDash = -4115;
inline constexpr int kDot = -4118;
inline constexpr int kDouble = -4119;
inline constexpr int kHairline = 1;
inline constexpr int kThin = 2;
inline constexpr int kMedium = -4138;
inline constexpr int kThick = 4;
} // namespace excel

// The styling of a saved sheet's used range, applied in this order.
struct SheetStyle
{
    quint32 fillColor = 0xFFFFFF;   // 0xRRGGBB
    quint32 borderColor = 0x000000; // 0xRRGGBB
    int lineStyle = excel::kContinuous;
    int weight = excel::kThin;
    QString fontName = QStringLiteral("Arial");
    double fontSize = 10.0; // points
    bool bold = false;
    bool italic = false;
    bool underline = false;
    quint32 fontColor = 0x000000; // 0xRRGGBB

    bool operator==(const SheetStyle&) const = default;
};

} // namespace nubo::database
