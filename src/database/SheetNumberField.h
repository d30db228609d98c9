// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace nubo::database {

// The rules of the sheet configuration's two number fields (border line style and weight):
// which texts they keep, the number a text stands for, and the steps of their buttons.
class SheetNumberField final
{
public:
    constexpr SheetNumberField(int low, int high, bool emptyAllowed)
        : m_low(low), m_high(high), m_emptyAllowed(emptyAllowed)
    {
    }

    // Any text that reads as a number, blanks around it allowed.
    static bool isNumber(const QString& text);
    // The whole number a text stands for, rounded; nothing for a text that is none.
    static std::optional<int> numberOf(const QString& text);

    // The text the field keeps after a change: a text that is no number becomes "0" (an
    // empty one is kept where the field allows it).
    QString checked(const QString& text) const;
    // One step up or down, never past the field's limits; a text that is no number counts as 0.
    QString stepped(const QString& text, int step) const;

private:
    int m_low;
    int m_high;
    bool m_emptyAllowed;
};

// TxtBorStyle: line styles 0 to 13; an empty text turns into "0".
inline constexpr SheetNumberField kLineStyleField{0, 13, false};
// TxtBorWidth: weights 1 to 4; an empty text is left alone.
inline constexpr SheetNumberField kWeightField{1, 4, true};

} // namespace nubo::database
