// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DiscList.h"

namespace nubo::catalogue {

DiscList::DiscList(QObject* parent) : QAbstractTableModel(parent) {}

int DiscList::indexOf(const QString& origen) const
{
    for (int i = 0; i < count(); ++i) {
        if (m_records[i].origen == origen)
            return i;
    }
    return -1;
}

const core::DiscRecord* DiscList::find(const QString& origen) const
{
    const int i = indexOf(origen);
    return i < 0 ? nullptr : &m_records[i];
}

void DiscList::append(const core::DiscRecord& record)
{
    beginInsertRows({}, count(), count());
    m_records.append(record);
    endInsertRows();
}

void DiscList::recordSearch(const core::DiscRecord& record)
{
    const int i = indexOf(record.origen);
    if (i < 0) {
        append(record);
        return;
    }
    core::DiscRecord updated = record;
    updated.ubicacion = m_records[i].ubicacion;
    updated.notas = m_records[i].notas;
    m_records[i] = updated;
    emit dataChanged(index(i, 0), index(i, core::kDiscFieldCount - 1));
}

void DiscList::merge(const QList<core::DiscRecord>& records)
{
    for (const core::DiscRecord& record : records) {
        if (indexOf(record.origen) < 0)
            append(record);
    }
}

void DiscList::clear()
{
    beginResetModel();
    m_records.clear();
    endResetModel();
}

int DiscList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

int DiscList::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : core::kDiscFieldCount;
}

QVariant DiscList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) ||
        (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    return m_records[index.row()].text(static_cast<core::DiscField>(index.column()));
}

QVariant DiscList::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= core::kDiscFieldCount)
        return {};
    return core::discCaptions().at(section);
}

} // namespace nubo::catalogue
