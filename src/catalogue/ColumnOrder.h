// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <Qt>

#include <vector>

namespace nubo::catalogue {

// The order of a column's texts under the user's collation: accents beside their letter, case
// ignored, equal texts in their first order. Long columns are collated on two threads.
class ColumnOrder final
{
public:
    // texts[i] is row i's text; the answer lists row numbers in their sorted order. Each text
    // must stay alive and unchanged until the call returns.
    static std::vector<int> sorted(const std::vector<const QString*>& texts, bool textsRepeat,
                                   Qt::SortOrder order);
};

} // namespace nubo::catalogue
