// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueList.h"

#include "catalogue/ColumnOrder.h"

#include <algorithm>

namespace nubo::catalogue {

namespace {

// Beyond this many separate runs of removed rows, one model reset is cheaper for the views
// than a removal signal per run.
constexpr int kMaxRemovalRuns = 32;

// Rows added one after another mostly repeat their neighbour's folder, group, format and drive:
// equal texts share the neighbour's copy, so a million rows do not hold a million copies.
void shareRepeatedTexts(CatalogueRow& row, const CatalogueRow& neighbour)
{
    const auto share = [](QString& text, const QString& other) {
        if (text.constData() != other.constData() && text == other)
            text = other;
    };
    for (const Column column : {Column::Direccion, Column::Origen, Column::Formato, Column::Unidad})
        share(row.text(column), neighbour.text(column));
    share(row.details.artist, neighbour.details.artist);
    share(row.details.album, neighbour.details.album);
    share(row.details.genre, neighbour.details.genre);
}

// The detail columns kept as text; the others are numbers.
const QString& detailTextOf(const core::FileDetails& details, Column column)
{
    switch (column) {
    case Column::Titulo:
        return details.title;
    case Column::Artista:
        return details.artist;
    case Column::Album:
        return details.album;
    default:
        break;
    }
    return details.genre;
}

// A numeric field as a sort key; an unknown value is below every known one.
qint64 numberOf(const core::FileDetails& details, core::DetailField field)
{
    switch (field) {
    case core::DetailField::Tamano:
        return details.size; // kNoSize is -1
    case core::DetailField::Fecha:
        return details.modified; // kNoDate is the least number
    case core::DetailField::Ano:
        return details.year; // 0: none
    case core::DetailField::Pista:
        return details.track; // 0: none
    default:
        break;
    }
    return details.duration; // kNoDuration is -1
}

} // namespace

bool isNumericColumn(Column column)
{
    switch (column) {
    case Column::Tamano:
    case Column::Fecha:
    case Column::Ano:
    case Column::Pista:
    case Column::Duracion:
        return true;
    default:
        return false;
    }
}

CatalogueList::CatalogueList(QObject* parent) : QAbstractTableModel(parent)
{
    m_flushTimer.setSingleShot(true);
    m_flushTimer.setInterval(kFlushIntervalMs);
    connect(&m_flushTimer, &QTimer::timeout, this, &CatalogueList::flush);
}

void CatalogueList::insertAtTop(CatalogueRow row)
{
    if (!m_rows.empty())
        shareRepeatedTexts(row, m_rows.back());
    m_rows.push_back(std::move(row));
    scheduleFlush();
}

void CatalogueList::appendAtBottom(CatalogueRow row)
{
    if (!m_rows.empty())
        shareRepeatedTexts(row, m_rows.front());
    m_rows.push_front(std::move(row));
    ++m_pendingBottom;
    ++m_bottomAdds;
    scheduleFlush();
}

void CatalogueList::scheduleFlush()
{
    if (!m_flushTimer.isActive())
        m_flushTimer.start();
}

void CatalogueList::flush()
{
    m_flushTimer.stop();
    if (const int top = pendingTop(); top > 0) {
        beginInsertRows({}, 0, top - 1);
        m_shown += top;
        endInsertRows();
    }
    if (m_pendingBottom > 0) {
        beginInsertRows({}, m_shown, m_shown + m_pendingBottom - 1);
        m_shown += m_pendingBottom;
        m_pendingBottom = 0;
        endInsertRows();
    }
}

void CatalogueList::removeAt(int position)
{
    if (position < 0 || position >= count())
        return;
    flush();
    beginRemoveRows({}, position, position);
    removeStorageRange(storageIndex(position), storageIndex(position));
    endRemoveRows();
}

void CatalogueList::removeStorageRange(std::size_t first, std::size_t last)
{
    const auto begin = m_rows.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = m_rows.begin() + static_cast<std::ptrdiff_t>(last) + 1;
    m_rows.erase(begin, end);
    m_shown = count(); // callers flush first, so nothing is pending
    m_pendingBottom = 0;
    ++m_generation;
}

void CatalogueList::clear()
{
    m_flushTimer.stop();
    beginResetModel();
    m_rows.clear();
    m_shown = 0;
    m_pendingBottom = 0;
    ++m_generation;
    endResetModel();
}

void CatalogueList::clearForExit()
{
    m_flushTimer.stop();
    beginResetModel();
    // Only the first end keeps its rows; anything added after it is freed at once.
    if (m_keptForExit.empty())
        m_keptForExit.swap(m_rows);
    m_rows.clear();
    m_shown = 0;
    m_pendingBottom = 0;
    ++m_generation;
    endResetModel();
}

int CatalogueList::removePositions(std::vector<int> positions)
{
    flush();
    std::erase_if(positions, [this](int p) { return p < 0 || p >= count(); });
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    // Runs of adjacent positions, as [first, last], top to bottom.
    std::vector<std::pair<int, int>> runs;
    for (const int p : positions) {
        if (!runs.empty() && runs.back().second == p - 1)
            runs.back().second = p;
        else
            runs.emplace_back(p, p);
    }
    if (static_cast<int>(runs.size()) > kMaxRemovalRuns) {
        removeByReset(positions);
        return int(positions.size());
    }
    // Bottom run first, so the positions of the runs above stay valid.
    for (auto it = runs.rbegin(); it != runs.rend(); ++it) {
        beginRemoveRows({}, it->first, it->second);
        removeStorageRange(storageIndex(it->second), storageIndex(it->first));
        endRemoveRows();
    }
    return int(positions.size());
}

// Positions: ascending, in range, each once.
void CatalogueList::removeByReset(const std::vector<int>& positions)
{
    beginResetModel();
    std::vector<bool> removed(m_rows.size(), false);
    for (const int p : positions)
        removed[storageIndex(p)] = true;
    std::deque<CatalogueRow> kept;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (!removed[i])
            kept.push_back(std::move(m_rows[i]));
    }
    m_rows = std::move(kept);
    m_shown = count();
    ++m_generation;
    endResetModel();
}

// The order of the rows by column, as old positions in their new order; equal values keep
// their relative order.
std::vector<int> CatalogueList::sortedPositions(Column column, Qt::SortOrder order) const
{
    if (isNumericColumn(column))
        return sortedByNumber(column, order);
    std::vector<const QString*> texts(m_rows.size());
    for (int p = 0; p < count(); ++p) {
        const CatalogueRow& r = row(p);
        texts[std::size_t(p)] =
            isDetailColumn(column) ? &detailTextOf(r.details, column) : &r.text(column);
    }
    // File names and titles seldom repeat: looking for repeats would only cost.
    const bool textsRepeat = column != Column::Nombre && column != Column::Titulo;
    return ColumnOrder::sorted(texts, textsRepeat, order);
}

// Unknown values are the smallest, as empty texts are in the text columns: first in ascending
// order, last in descending. Ties break on the old position either way, so the sort is stable.
std::vector<int> CatalogueList::sortedByNumber(Column column, Qt::SortOrder order) const
{
    const std::size_t rows = m_rows.size();
    std::vector<std::pair<qint64, int>> keyed(rows);
    const core::DetailField field = detailFieldOf(column);
    for (int p = 0; p < count(); ++p)
        keyed[std::size_t(p)] = {numberOf(row(p).details, field), p};
    if (order == Qt::AscendingOrder) {
        std::sort(keyed.begin(), keyed.end());
    } else {
        std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) {
            return a.first != b.first ? a.first > b.first : a.second < b.second;
        });
    }
    std::vector<int> positions(rows);
    for (std::size_t i = 0; i < rows; ++i)
        positions[i] = keyed[i].second;
    return positions;
}

void CatalogueList::sortByColumn(Column column, Qt::SortOrder order)
{
    flush();
    if (count() < 2)
        return;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    // byNewPosition[newPosition] = oldPosition
    const std::vector<int> byNewPosition = sortedPositions(column, order);
    std::deque<CatalogueRow> sorted(m_rows.size());
    std::vector<int> newPositionOf(m_rows.size());
    for (int p = 0; p < count(); ++p) {
        sorted[storageIndex(p)] = std::move(m_rows[storageIndex(byNewPosition[p])]);
        newPositionOf[byNewPosition[p]] = p;
    }
    m_rows = std::move(sorted);
    ++m_generation;
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    after.reserve(before.size());
    for (const QModelIndex& index : before)
        after.append(this->index(newPositionOf[index.row()], index.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

int CatalogueList::positionOf(const QModelIndex& index) const
{
    if (!index.isValid() || index.row() >= m_shown)
        return -1;
    return index.row() + pendingTop();
}

QModelIndex CatalogueList::indexAt(int position, Column column) const
{
    const int viewRow = position - pendingTop();
    if (viewRow < 0 || viewRow >= m_shown)
        return {};
    return index(viewRow, static_cast<int>(column));
}

int CatalogueList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_shown;
}

int CatalogueList::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumnCount;
}

QVariant CatalogueList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto column = static_cast<Column>(index.column());
    // Numbers line up on their last digit, as a spreadsheet shows them.
    if (role == Qt::TextAlignmentRole && isNumericColumn(column) && column != Column::Fecha)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    const CatalogueRow& r = m_rows[shownIndex(index.row())];
    return r.displayText(column);
}

bool CatalogueList::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != Qt::EditRole ||
        index.column() != static_cast<int>(Column::Nombre))
        return false;
    // A blank name would be saved as a nameless row: the old name stays.
    if (value.toString().trimmed().isEmpty())
        return false;
    m_rows[shownIndex(index.row())].nombre = value.toString();
    emit dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
    return true;
}

QVariant CatalogueList::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= kColumnCount)
        return {};
    return columnCaptions().at(section);
}

Qt::ItemFlags CatalogueList::flags(const QModelIndex& index) const
{
    Qt::ItemFlags result = QAbstractTableModel::flags(index);
    // Only the name is edited in place.
    if (index.isValid() && index.column() == static_cast<int>(Column::Nombre))
        result |= Qt::ItemIsEditable;
    return result;
}

} // namespace nubo::catalogue
