// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::print {

// How wide a text is drawn, so the cover layout can fit fonts without a paint device.
class ITextMeasure
{
public:
    virtual ~ITextMeasure() = default;
    // The width in millimetres of text in the cover's font at pointSize.
    virtual double widthMm(const QString& text, double pointSize, bool bold) const = 0;
};

} // namespace nubo::print
