// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Wildcard.h"

#include <QList>

#include <utility>
#include <vector>

namespace nubo::platform {

namespace {

using Token = WildcardMask::Token;
using Item = WildcardMask::Item;

bool sameChar(QChar a, QChar b)
{
    return a == b || a.toCaseFolded() == b.toCaseFolded();
}

// Trailing blanks and dots are dropped as Windows drops them from a path, but a trailing dot
// still means "no extension" ("*." names files without one), so one dot is kept.
QString normalised(const QString& pattern)
{
    QString mask = pattern;
    bool droppedDot = false;
    while (!mask.isEmpty() &&
           (mask.back() == QLatin1Char(' ') || mask.back() == QLatin1Char('.'))) {
        droppedDot = droppedDot || mask.back() == QLatin1Char('.');
        mask.chop(1);
    }
    if (droppedDot && !mask.isEmpty())
        mask.append(QLatin1Char('.'));
    // A run of stars is one star: "**.*" is "*.*".
    while (mask.contains(QLatin1String("**")))
        mask.replace(QLatin1String("**"), QLatin1String("*"));
    return mask;
}

QList<Item> tokens(const QString& mask)
{
    QList<Item> items;
    for (qsizetype i = 0; i < mask.size(); ++i) {
        const QChar c = mask[i];
        const QChar next = i + 1 < mask.size() ? mask[i + 1] : QChar();
        if (c == QLatin1Char('*'))
            items.append({next == QLatin1Char('.') ? Token::RunToDot : Token::AnyRun, c});
        else if (c == QLatin1Char('?'))
            items.append({Token::OneOrNone, c});
        else if (c == QLatin1Char('.') &&
                 (next.isNull() || next == QLatin1Char('*') || next == QLatin1Char('?')))
            items.append({Token::DotOrEnd, c});
        else
            items.append({Token::Literal, c});
    }
    return items;
}

} // namespace

bool wildcardMatch(const QString& pattern, const QString& name)
{
    return WildcardMask(pattern).matches(name);
}

WildcardMask::WildcardMask(const QString& pattern) : m_pattern(pattern)
{
    const QString mask = normalised(pattern);
    // "*.*" names every file, with or without a dot.
    m_all = mask == QLatin1String("*.*") || mask == QLatin1String("*");
    m_items = tokens(mask);
    m_suffixOnly = m_items.size() > 1 && m_items.front().token != Token::Literal &&
                   m_items.front().token != Token::OneOrNone &&
                   m_items.front().token != Token::DotOrEnd;
    for (qsizetype i = 1; m_suffixOnly && i < m_items.size(); ++i) {
        m_suffixOnly = m_items[i].token == Token::Literal;
        m_suffix.append(m_items[i].ch);
    }
}

bool WildcardMask::matches(const QString& name) const
{
    if (m_all)
        return true;
    // The leading run can take any dot but the last, and the plain tail holds the last one
    // whenever the name has it, so ending with the tail is the whole test.
    if (m_suffixOnly)
        return name.endsWith(m_suffix, Qt::CaseInsensitive);
    return matchesByTable(name);
}

bool WildcardMask::matchesByTable(const QString& name) const
{
    const QList<Item>& items = m_items;
    const qsizetype length = name.size();
    const qsizetype lastDot = name.lastIndexOf(QLatin1Char('.'));
    const QChar dot(QLatin1Char('.'));
    // next[n]: the rest of the mask after the current token matches name from n. Filled from
    // the mask's end, so the cost is the mask length times the name length, never exponential.
    // Two rows of the table, swapped as the mask is walked back, so a name costs two buffers.
    std::vector<char> next(std::size_t(length) + 1, 0);
    std::vector<char> here(std::size_t(length) + 1, 0);
    next[std::size_t(length)] = 1;
    for (qsizetype p = items.size() - 1; p >= 0; --p) {
        for (qsizetype n = length; n >= 0; --n) {
            const bool atEnd = n == length;
            switch (items[p].token) {
            case Token::Literal:
                here[n] = !atEnd && sameChar(items[p].ch, name[n]) && next[n + 1];
                break;
            case Token::AnyRun:
                here[n] = next[n] || (!atEnd && here[n + 1]);
                break;
            case Token::RunToDot:
                here[n] = next[n] || (!atEnd && n != lastDot && here[n + 1]);
                break;
            case Token::OneOrNone:
                here[n] = (!atEnd && name[n] != dot && next[n + 1]) ||
                          ((atEnd || name[n] == dot) && next[n]);
                break;
            case Token::DotOrEnd:
                here[n] = (!atEnd && name[n] == dot && next[n + 1]) || (atEnd && next[n]);
                break;
            }
        }
        std::swap(next, here);
    }
    return next[0] != 0;
}

} // namespace nubo::platform
