// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/DiscRecord.h"

#include <QAbstractTableModel>
#include <QList>

namespace nubo::catalogue {

// The disc records of the list: one per group (ORIGEN), in the order the groups were first
// catalogued or loaded. As a Qt model it is a table of the record's fields, core::DiscField
// giving the column order.
class DiscList final : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit DiscList(QObject* parent = nullptr);

    const QList<core::DiscRecord>& records() const { return m_records; }
    int count() const { return int(m_records.size()); }
    const core::DiscRecord* find(const QString& origen) const;
    // A search's record replaces what the volume said of its group's disc, keeping what the
    // user typed (UBICACION, NOTAS); a new group gets a new record.
    void recordSearch(const core::DiscRecord& record);
    // A loaded file's records: a group already known keeps its own record, others are added.
    void merge(const QList<core::DiscRecord>& records);
    // The list was emptied: its discs go with its rows.
    void clear();

    // QAbstractItemModel
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    int indexOf(const QString& origen) const;
    void append(const core::DiscRecord& record);

    QList<core::DiscRecord> m_records;
};

} // namespace nubo::catalogue
