// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryTotals.h"

namespace nubo::library {

void LibraryTotals::add(const QString& catalogue, const catalogue::CatalogueRow& row)
{
    const core::FileDetails& d = row.details;
    const catalogue::GroupTotals one{1, qMax<qint64>(d.size, 0), qMax<qint64>(d.duration, 0)};
    m_overall.add(one);
    m_discs[{catalogue, row.origen}].add(one);
    m_groups[row.origen].add(one);
    m_formats[row.formato].add(one);
}

} // namespace nubo::library
