// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>

namespace nubo::platform {

// Matches a file name against a mask the way Windows file enumeration does: case-insensitive;
// '*' for any run and '?' for one character or none at a dot or the end; a dot before a
// wildcard or at the end also matches a name without one ("tema.*" finds "tema", "*." finds
// names without an extension); trailing blanks and dots are ignored; "*.*" names every file.
bool wildcardMatch(const QString& pattern, const QString& name);

// A mask read once and matched against many names, with the rules of wildcardMatch.
class WildcardMask final
{
public:
    explicit WildcardMask(const QString& pattern);
    bool matches(const QString& name) const;
    const QString& pattern() const { return m_pattern; }

    enum class Token {
        Literal,
        AnyRun,    // '*' not followed by '.': any run of characters
        RunToDot,  // '*' followed by '.': any run that does not take the name's last dot
        OneOrNone, // '?': one character other than '.', or none before a dot or the end
        DotOrEnd,  // '.' before a wildcard or at the end: a dot, or the end of the name
    };
    struct Item
    {
        Token token;
        QChar ch;
    };

private:
    bool matchesByTable(const QString& name) const;

    QString m_pattern;
    QList<Item> m_items;
    bool m_all = false;
    // "*" then plain characters ("*.mp3"): a name matches when it ends with them.
    QString m_suffix;
    bool m_suffixOnly = false;
};

} // namespace nubo::platform
