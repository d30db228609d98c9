// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/flow/SavedListRows.h"

#include "catalogue/CatalogueList.h"

namespace nubo::database {

namespace {

CatalogueRecord recordOf(const catalogue::CatalogueRow& row)
{
    return {row.nombre, row.direccion, row.origen, row.formato, row.details};
}

} // namespace

SavedListRows::SavedListRows(const catalogue::CatalogueList& list)
    : m_list(list), m_count(list.count())
{
    connect(&list, &QAbstractItemModel::modelAboutToBeReset, this, &SavedListRows::keepCopy);
    connect(&list, &QAbstractItemModel::rowsAboutToBeRemoved, this, &SavedListRows::keepCopy);
    connect(&list, &QAbstractItemModel::layoutAboutToBeChanged, this, &SavedListRows::keepCopy);
}

CatalogueRowSource SavedListRows::source() const
{
    return {m_count, [this](qsizetype index) { return row(index); }};
}

// Rows added since the start are at the top, so the saved ones are the last m_count.
CatalogueRecord SavedListRows::row(qsizetype index) const
{
    if (m_copied)
        return m_copy.value(index);
    const qsizetype position = m_list.count() - m_count + index;
    if (index < 0 || index >= m_count || position < 0)
        return {};
    return recordOf(m_list.row(int(position)));
}

void SavedListRows::keepCopy()
{
    if (m_copied)
        return;
    m_copy.reserve(m_count);
    for (qsizetype index = 0; index < m_count; ++index)
        m_copy.append(row(index));
    m_copied = true;
}

} // namespace nubo::database
