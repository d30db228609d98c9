// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BorderStyles.h"

#include "database/SheetStyle.h"

#include <algorithm>
#include <array>

namespace nubo::database {
namespace {

enum BiffBorder : quint8 {
    kNone = 0,
    kThin = 1,
    kMedium = 2,
    kDashed = 3,
    kDotted = 4,
    kThick = 5,
    kDouble = 6,
    kHair = 7,
    kMediumDashed = 8,
    kDashDot = 9,
    kMediumDashDot = 10,
    kDashDotDot = 11,
    kMediumDashDotDot = 12,
    kSlantedDashDot = 13,
};

// The weight columns of the table below.
enum WeightColumn { kHairColumn, kThinColumn, kMediumColumn, kThickColumn };

struct LineStyleRow
{
    int lineStyle;
    std::array<quint8, 4> byWeight; // hairline, thin, medium, thick
};

// The spreadsheet's line style and weight on the workbook format's border styles. The format
// draws fewer lines than the spreadsheet names, so some pairs share a code:
// - dashed, dash-dot and dash-dot-dot come thin or medium only: hairline draws thin, thick
//   draws medium;
// - dotted comes in one weight: hairline draws the hair line, medium and thick draw dotted;
// - slanted dash-dot and double come in one weight each, whatever the weight asked;
// - 0 and none draw no line; any other number is not a line style and draws continuous.
constexpr std::array<LineStyleRow, 8> kBiffBorderStyles = {{
    {excel::kContinuous, {kHair, kThin, kMedium, kThick}},
    {excel::kDash, {kDashed, kDashed, kMediumDashed, kMediumDashed}},
    {excel::kDot, {kHair, kDotted, kDotted, kDotted}},
    {excel::kDashDot, {kDashDot, kDashDot, kMediumDashDot, kMediumDashDot}},
    {excel::kDashDotDot, {kDashDotDot, kDashDotDot, kMediumDashDotDot, kMediumDashDotDot}},
    {excel::kSlantDashDot, {kSlantedDashDot, kSlantedDashDot, kSlantedDashDot, kSlantedDashDot}},
    {excel::kDouble, {kDouble, kDouble, kDouble, kDouble}},
    {excel::kLineStyleNone, {kNone, kNone, kNone, kNone}},
}};

// Weight 3 lies between thin and thick and is no spreadsheet weight: it draws medium. Any
// other number that is no weight draws thin.
WeightColumn weightColumn(int weight)
{
    switch (weight) {
    case excel::kHairline:
        return kHairColumn;
    case 3:
    case excel::kMedium:
        return kMediumColumn;
    case excel::kThick:
        return kThickColumn;
    default:
        return kThinColumn;
    }
}

} // namespace

int biffBorderStyle(int lineStyle, int weight)
{
    const int style = lineStyle == 0 ? excel::kLineStyleNone : lineStyle;
    const auto row = std::find_if(kBiffBorderStyles.begin(), kBiffBorderStyles.end(),
                                  [style](const LineStyleRow& r) { return r.lineStyle == style; });
    const LineStyleRow& found = row == kBiffBorderStyles.end() ? kBiffBorderStyles.front() : *row;
    return found.byWeight[weightColumn(weight)];
}

} // namespace nubo::database
