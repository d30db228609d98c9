#include "platform/Wildcard.h"

namespace nubo::platform {

namespace {

bool sameChar(QChar a, QChar b)
{
    return a == b || a.toCaseFolded() == b.toCaseFolded();
}

} // namespace

bool wildcardMatch(const QString& pattern, const QString& name)
{
    // "*.*" names every file, with or without a dot.
    if (pattern == QLatin1String("*.*"))
        return true;
    // Iterative glob with single backtracking point: linear in practice, never recursive.
    qsizetype p = 0, n = 0, starP = -1, starN = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == QLatin1Char('*')) {
            starP = p++;
            starN = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == QLatin1Char('?') || sameChar(pattern[p], name[n]))) {
            ++p;
            ++n;
        } else if (starP >= 0) {
            p = starP + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == QLatin1Char('*'))
        ++p;
    return p == pattern.size();
}

} // namespace nubo::platform
