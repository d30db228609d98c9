// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Wildcard.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace nubo::platform {

// A search mask of one or more wildcard patterns separated by ';' ("*.flac;*.ogg"): a name
// matches when any pattern matches it, by the rules of wildcardMatch.
class MaskList final
{
public:
    static constexpr QChar kSeparator = QLatin1Char(';');

    explicit MaskList(const QString& text);
    bool matches(const QString& name) const;
    // The text it was read from.
    const QString& text() const { return m_text; }

    // The patterns of a mask text, blanks around each removed and empty ones left out.
    static QStringList patternsOf(const QString& text);

private:
    QString m_text;
    QList<WildcardMask> m_masks;
};

} // namespace nubo::platform
