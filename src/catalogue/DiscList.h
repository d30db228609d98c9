// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/DiscTotals.h"
#include "core/DiscRecord.h"

#include <QAbstractTableModel>
#include <QList>

#include <functional>

namespace nubo::catalogue {

// The disc records of the list: one per group (ORIGEN), in the order the groups were first
// catalogued or loaded.
//
// As a Qt model it is a table of the record's fields (core::DiscField giving the column
// order) followed by the group's files, bytes and length. Below the records come the groups
// that have rows but no record (rows of a catalogue saved without them), with empty fields;
// typing a UBICACION or NOTAS there makes their record. ORIGEN, UBICACION and NOTAS are
// edited in place.
class DiscList final : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum TotalColumn { Archivos = core::kDiscFieldCount, Bytes, Duracion };
    static constexpr int kColumnCount = Duracion + 1;

    // Renames the rows of group from to; returns why it did not, or an empty text.
    using GroupRenamer = std::function<QString(const QString& from, const QString& to)>;

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

    // The rows' totals as they are now; groups without a record are shown from them.
    void setTotals(const DiscTotals& totals);
    const DiscTotals& totals() const { return m_totals; }
    // How an edited ORIGEN reaches the rows; without one, ORIGEN is not editable.
    void setGroupRenamer(GroupRenamer renamer) { m_renamer = std::move(renamer); }
    // Groups with rows but no record, after the records.
    const QStringList& unrecordedGroups() const { return m_unrecorded; }
    // The group a model row shows.
    QString groupAt(int row) const;

    // QAbstractItemModel
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

signals:
    // An edit was refused; reason says why, in a sentence for the user.
    void editRefused(const QString& reason);

private:
    int indexOf(const QString& origen) const;
    void append(const core::DiscRecord& record);
    QString totalText(const QString& origen, int column) const;
    bool renameGroup(int row, const QString& name);
    bool setTypedText(int row, core::DiscField field, const QString& text);
    void emitRowChanged(int row);

    QList<core::DiscRecord> m_records;
    QStringList m_unrecorded;
    DiscTotals m_totals;
    GroupRenamer m_renamer;
};

} // namespace nubo::catalogue
