// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/DiscList.h"

namespace nubo::catalogue {

namespace {

bool isTyped(core::DiscField field)
{
    return field == core::DiscField::Ubicacion || field == core::DiscField::Notas;
}

bool isNumber(int column)
{
    return column == int(core::DiscField::Capacidad) || column == int(core::DiscField::Libre) ||
           column >= DiscList::Archivos;
}

} // namespace

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

QString DiscList::groupAt(int row) const
{
    if (row < 0 || row >= rowCount())
        return {};
    return row < count() ? m_records[row].origen : m_unrecorded[row - count()];
}

// A group shown without a record keeps its place in the view: its row becomes the record.
void DiscList::append(const core::DiscRecord& record)
{
    const int n = count();
    const int k = int(m_unrecorded.indexOf(record.origen));
    if (k < 0) {
        beginInsertRows({}, n, n);
        m_records.append(record);
        endInsertRows();
        return;
    }
    if (k > 0) {
        beginMoveRows({}, n + k, n + k, {}, n);
        m_unrecorded.move(k, 0);
        endMoveRows();
    }
    m_unrecorded.removeFirst();
    m_records.append(record);
    emitRowChanged(n);
}

void DiscList::emitRowChanged(int row)
{
    emit dataChanged(index(row, 0), index(row, kColumnCount - 1));
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
    emitRowChanged(i);
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
    m_unrecorded.clear();
    m_totals = {};
    endResetModel();
}

void DiscList::setTotals(const DiscTotals& totals)
{
    QStringList unrecorded;
    for (const QString& group : totals.groups()) {
        if (indexOf(group) < 0)
            unrecorded.append(group);
    }
    m_totals = totals;
    const int n = count();
    if (unrecorded != m_unrecorded) {
        if (!m_unrecorded.isEmpty()) {
            beginRemoveRows({}, n, n + int(m_unrecorded.size()) - 1);
            m_unrecorded.clear();
            endRemoveRows();
        }
        if (!unrecorded.isEmpty()) {
            beginInsertRows({}, n, n + int(unrecorded.size()) - 1);
            m_unrecorded = unrecorded;
            endInsertRows();
        }
    }
    if (rowCount() > 0)
        emit dataChanged(index(0, Archivos), index(rowCount() - 1, Duracion));
}

QString DiscList::totalText(const QString& origen, int column) const
{
    const GroupTotals sums = m_totals.group(origen);
    switch (column) {
    case Archivos:
        return QString::number(sums.files);
    case Bytes:
        return QString::number(sums.bytes);
    default:
        return DiscTotals::durationText(sums.seconds);
    }
}

int DiscList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count() + int(m_unrecorded.size());
}

int DiscList::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumnCount;
}

QVariant DiscList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const int column = index.column();
    if (role == Qt::TextAlignmentRole && isNumber(column))
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    const QString group = groupAt(index.row());
    if (column >= Archivos)
        return totalText(group, column);
    if (index.row() < count())
        return m_records[index.row()].text(static_cast<core::DiscField>(column));
    return column == int(core::DiscField::Origen) ? group : QString();
}

Qt::ItemFlags DiscList::flags(const QModelIndex& index) const
{
    Qt::ItemFlags result = QAbstractTableModel::flags(index);
    if (!index.isValid() || index.column() >= Archivos)
        return result;
    const auto field = static_cast<core::DiscField>(index.column());
    if (isTyped(field) || (field == core::DiscField::Origen && m_renamer))
        result |= Qt::ItemIsEditable;
    return result;
}

bool DiscList::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::EditRole ||
        !(flags(index) & Qt::ItemIsEditable))
        return false;
    const auto field = static_cast<core::DiscField>(index.column());
    if (field == core::DiscField::Origen)
        return renameGroup(index.row(), value.toString());
    return setTypedText(index.row(), field, value.toString());
}

// A group without a record gets one only once the user types something for it.
bool DiscList::setTypedText(int row, core::DiscField field, const QString& text)
{
    if (row >= count()) {
        if (text.isEmpty())
            return true;
        core::DiscRecord record;
        record.origen = groupAt(row);
        (void)record.setText(field, text);
        append(record);
        return true;
    }
    if (!m_records[row].setText(field, text))
        return false;
    const QModelIndex changed = index(row, int(field));
    emit dataChanged(changed, changed, {Qt::DisplayRole, Qt::EditRole});
    return true;
}

// The rows are renamed first; the record follows only once they are.
bool DiscList::renameGroup(int row, const QString& name)
{
    const QString from = groupAt(row);
    const QString to = name.trimmed();
    if (to == from)
        return true;
    QString reason;
    if (to.isEmpty())
        reason = QStringLiteral("El nombre del disco no puede quedar vacío.");
    else if (indexOf(to) >= 0 || m_unrecorded.contains(to))
        reason = QStringLiteral("Ya hay un disco llamado \"%1\": elija otro nombre.").arg(to);
    else
        reason = m_renamer(from, to);
    if (!reason.isEmpty()) {
        emit editRefused(reason);
        return false;
    }
    if (row < count())
        m_records[row].origen = to;
    else
        m_unrecorded[row - count()] = to;
    m_totals.renameGroup(from, to);
    emitRowChanged(row);
    return true;
}

QVariant DiscList::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= kColumnCount)
        return {};
    if (section < core::kDiscFieldCount)
        return core::discCaptions().at(section);
    static const QStringList totals{QStringLiteral("ARCHIVOS"), QStringLiteral("BYTES"),
                                    QStringLiteral("DURACION")};
    return totals.at(section - Archivos);
}

} // namespace nubo::catalogue
