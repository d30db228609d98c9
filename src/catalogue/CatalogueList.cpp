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

} // namespace

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

// The order of the rows by column, as old positions in their new order; equal texts keep
// their relative order.
std::vector<int> CatalogueList::sortedPositions(Column column, Qt::SortOrder order) const
{
    std::vector<const QString*> texts(m_rows.size());
    std::vector<QString> detailTexts;
    if (isDetailColumn(column)) {
        detailTexts.resize(m_rows.size());
        for (int p = 0; p < count(); ++p) {
            detailTexts[std::size_t(p)] = row(p).displayText(column);
            texts[std::size_t(p)] = &detailTexts[std::size_t(p)];
        }
    } else {
        for (int p = 0; p < count(); ++p)
            texts[std::size_t(p)] = &row(p).text(column);
    }
    // File names seldom repeat: looking for repeats would only cost.
    return ColumnOrder::sorted(texts, column != Column::Nombre, order);
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
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) ||
        (role != Qt::DisplayRole && role != Qt::EditRole))
        return {};
    const CatalogueRow& r = m_rows[shownIndex(index.row())];
    return r.displayText(static_cast<Column>(index.column()));
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
