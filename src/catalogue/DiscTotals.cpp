// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DiscTotals.h"

#include "catalogue/CatalogueList.h"

namespace nubo::catalogue {

void GroupTotals::add(const GroupTotals& other)
{
    files += other.files;
    bytes += other.bytes;
    seconds += other.seconds;
}

DiscTotals DiscTotals::of(const CatalogueList& list)
{
    DiscTotals totals;
    // Neighbouring rows mostly belong to one group and share its text, so the group is looked
    // up only when the text differs from the previous row's.
    const QChar* lastText = nullptr;
    int lastIndex = -1;
    for (int p = list.count() - 1; p >= 0; --p) {
        const CatalogueRow& row = list.row(p);
        if (lastIndex < 0 || row.origen.constData() != lastText) {
            lastIndex = totals.m_index.value(row.origen, -1);
            if (lastIndex < 0) {
                lastIndex = int(totals.m_groups.size());
                totals.m_index.insert(row.origen, lastIndex);
                totals.m_groups.append(row.origen);
                totals.m_sums.emplace_back();
            }
            lastText = row.origen.constData();
        }
        GroupTotals& sums = totals.m_sums[std::size_t(lastIndex)];
        ++sums.files;
        if (row.details.size > 0)
            sums.bytes += row.details.size;
        if (row.details.duration > 0)
            sums.seconds += row.details.duration;
    }
    for (const GroupTotals& sums : totals.m_sums)
        totals.m_overall.add(sums);
    return totals;
}

GroupTotals DiscTotals::group(const QString& origen) const
{
    const int i = m_index.value(origen, -1);
    return i < 0 ? GroupTotals{} : m_sums[std::size_t(i)];
}

void DiscTotals::renameGroup(const QString& from, const QString& to)
{
    const int i = m_index.value(from, -1);
    if (i < 0)
        return;
    m_index.remove(from);
    m_index.insert(to, i);
    m_groups[i] = to;
}

QString DiscTotals::durationText(qint64 seconds)
{
    return QStringLiteral("%1:%2:%3")
        .arg(seconds / 3600)
        .arg(seconds / 60 % 60, 2, 10, QLatin1Char('0'))
        .arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace nubo::catalogue
