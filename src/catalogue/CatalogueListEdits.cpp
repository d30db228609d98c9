// SPDX-License-Identifier: GPL-3.0-or-later
// The list's changes in place: a group renamed on its rows, and details read after the rows
// were added, found again through row handles.
#include "catalogue/CatalogueList.h"

#include <algorithm>

namespace nubo::catalogue {

int CatalogueList::renameGroup(const QString& from, const QString& to)
{
    flush();
    int renamed = 0;
    int firstRow = count();
    int lastRow = -1;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (m_rows[i].origen != from)
            continue;
        m_rows[i].origen = to;
        ++renamed;
        const int viewRow = m_shown - 1 - int(i);
        firstRow = std::min(firstRow, viewRow);
        lastRow = std::max(lastRow, viewRow);
    }
    if (renamed > 0) {
        const int column = static_cast<int>(Column::Origen);
        emit dataChanged(index(firstRow, column), index(lastRow, column),
                         {Qt::DisplayRole, Qt::EditRole});
    }
    return renamed;
}

bool CatalogueList::hasGroup(const QString& origen) const
{
    return std::any_of(m_rows.begin(), m_rows.end(),
                       [&origen](const CatalogueRow& r) { return r.origen == origen; });
}

// A slot is the row's storage index less the rows added at the bottom since: adding at the top
// appends to the storage and adding at the bottom shifts it, so the two together find the row.
CatalogueList::RowHandle CatalogueList::handleOf(int position) const
{
    return {m_generation, qint64(storageIndex(position)) - m_bottomAdds};
}

int CatalogueList::positionOf(RowHandle handle) const
{
    if (handle.generation != m_generation)
        return -1;
    const qint64 stored = handle.slot + m_bottomAdds;
    if (stored < 0 || stored >= qint64(m_rows.size()))
        return -1;
    return int(qint64(m_rows.size()) - 1 - stored);
}

void CatalogueList::setDetails(const QList<std::pair<RowHandle, core::FileDetails>>& batch)
{
    int firstShown = m_shown;
    int lastShown = -1;
    const core::FileDetails* previous = nullptr;
    for (const auto& [handle, details] : batch) {
        const int position = positionOf(handle);
        if (position < 0)
            continue;
        core::FileDetails& target = m_rows[storageIndex(position)].details;
        target = details;
        // Files read one after another mostly share their artist, album and genre.
        if (previous) {
            for (auto field : {&core::FileDetails::artist, &core::FileDetails::album,
                               &core::FileDetails::genre}) {
                if (target.*field == previous->*field)
                    target.*field = previous->*field;
            }
        }
        previous = &target;
        const int viewRow = position - pendingTop();
        if (viewRow >= 0 && viewRow < m_shown) {
            firstShown = std::min(firstShown, viewRow);
            lastShown = std::max(lastShown, viewRow);
        }
    }
    if (lastShown >= 0)
        emit dataChanged(index(firstShown, kTextColumnCount), index(lastShown, kColumnCount - 1),
                         {Qt::DisplayRole, Qt::EditRole});
}

} // namespace nubo::catalogue
