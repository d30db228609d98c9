#include "database/BorderStyles.h"

#include "database/SheetStyle.h"

namespace nubo::database {
namespace {

enum BiffBorder : int {
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

enum class Weight { Hair, Thin, Medium, Thick };

Weight weightOf(int weight)
{
    switch (weight) {
    case excel::kHairline:
        return Weight::Hair;
    case 3: // between thin and thick: the spreadsheet has no such weight; drawn medium
    case excel::kMedium:
        return Weight::Medium;
    case excel::kThick:
        return Weight::Thick;
    default:
        return Weight::Thin;
    }
}

int continuous(Weight weight)
{
    switch (weight) {
    case Weight::Hair:
        return kHair;
    case Weight::Thin:
        return kThin;
    case Weight::Medium:
        return kMedium;
    case Weight::Thick:
        return kThick;
    }
    return kThin;
}

bool heavy(Weight weight)
{
    return weight == Weight::Medium || weight == Weight::Thick;
}

} // namespace

int biffBorderStyle(int lineStyle, int weightNumber)
{
    const Weight weight = weightOf(weightNumber);
    switch (lineStyle) {
    case 0:
    case excel::kLineStyleNone:
        return kNone;
    case excel::kDash:
        return heavy(weight) ? kMediumDashed : kDashed;
    case excel::kDot:
        return weight == Weight::Hair ? kHair : kDotted;
    case excel::kDashDot:
        return heavy(weight) ? kMediumDashDot : kDashDot;
    case excel::kDashDotDot:
        return heavy(weight) ? kMediumDashDotDot : kDashDotDot;
    case excel::kSlantDashDot:
        return kSlantedDashDot;
    case excel::kDouble:
        return kDouble;
    default: // continuous, and numbers the spreadsheet does not define
        return continuous(weight);
    }
}

} // namespace nubo::database
