// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MaskList.h"

namespace nubo::platform {

MaskList::MaskList(const QString& text) : m_text(text)
{
    for (const QString& pattern : patternsOf(text))
        m_masks.append(WildcardMask(pattern));
}

bool MaskList::matches(const QString& name) const
{
    for (const WildcardMask& mask : m_masks) {
        if (mask.matches(name))
            return true;
    }
    return false;
}

QStringList MaskList::patternsOf(const QString& text)
{
    QStringList patterns;
    for (const QString& piece : text.split(kSeparator)) {
        const QString pattern = piece.trimmed();
        if (!pattern.isEmpty())
            patterns.append(pattern);
    }
    return patterns;
}

} // namespace nubo::platform
