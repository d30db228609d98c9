// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ListFilter.h"

#include "catalogue/CatalogueList.h"

#include <algorithm>
#include <numeric>

namespace nubo::catalogue {

ListFilter::ListFilter(CatalogueList& list, QObject* parent)
    : QAbstractProxyModel(parent), m_list(list)
{
    QAbstractProxyModel::setSourceModel(&list);
    m_shown = matchingRows(nullptr);
    connect(&list, &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) { sourceRowsInserted(first, last); });
    connect(&list, &QAbstractItemModel::rowsAboutToBeRemoved, this,
            [this](const QModelIndex&, int first, int last) {
                sourceRowsAboutToBeRemoved(first, last);
            });
    connect(&list, &QAbstractItemModel::rowsRemoved, this,
            [this](const QModelIndex&, int first, int last) { sourceRowsRemoved(first, last); });
    connect(&list, &QAbstractItemModel::dataChanged, this, &ListFilter::sourceDataChanged);
    connect(&list, &QAbstractItemModel::layoutAboutToBeChanged, this, [this] {
        emit layoutAboutToBeChanged();
        m_layoutBefore = persistentIndexList();
        m_layoutSources.clear();
        for (const QModelIndex& index : std::as_const(m_layoutBefore))
            m_layoutSources.append(mapToSource(index));
    });
    connect(&list, &QAbstractItemModel::layoutChanged, this, &ListFilter::sourceLayoutChanged);
    connect(&list, &QAbstractItemModel::modelAboutToBeReset, this, [this] { beginResetModel(); });
    connect(&list, &QAbstractItemModel::modelReset, this, &ListFilter::sourceReset);
    connect(&list, &QAbstractItemModel::headerDataChanged, this,
            &QAbstractItemModel::headerDataChanged);
}

const CatalogueRow& ListFilter::sourceRow(int row) const
{
    return m_list.row(m_list.positionOf(m_list.index(row, 0)));
}

std::string ListFilter::keyOfSourceRow(int row) const
{
    return FindWords::keyOf(sourceRow(row), m_numbers);
}

// The rows' folded keys, made again from the list once the find has been prepared.
void ListFilter::rebuildKeys()
{
    m_keys.clear();
    if (!m_keysReady)
        return;
    const int rows = m_list.rowCount();
    m_keys.reserve(std::size_t(rows));
    for (int r = 0; r < rows; ++r)
        m_keys.push_back(keyOfSourceRow(r));
}

void ListFilter::prepare()
{
    if (m_keysReady)
        return;
    m_keysReady = true;
    rebuildKeys();
}

void ListFilter::insertKeys(int first, int last)
{
    if (!m_keysReady)
        return;
    std::vector<std::string> keys;
    keys.reserve(std::size_t(last - first + 1));
    for (int r = first; r <= last; ++r)
        keys.push_back(keyOfSourceRow(r));
    m_keys.insert(m_keys.begin() + first, std::make_move_iterator(keys.begin()),
                  std::make_move_iterator(keys.end()));
}

// The source rows the words match: among the given rows, or among all.
std::vector<int> ListFilter::matchingRows(const std::vector<int>* among) const
{
    std::vector<int> rows;
    if (m_words.isEmpty()) {
        rows.resize(std::size_t(m_list.rowCount()));
        std::iota(rows.begin(), rows.end(), 0);
        return rows;
    }
    if (among) {
        for (int r : *among) {
            if (m_words.matches(m_keys[std::size_t(r)]))
                rows.push_back(r);
        }
        return rows;
    }
    for (std::size_t r = 0; r < m_keys.size(); ++r) {
        if (m_words.matches(m_keys[r]))
            rows.push_back(int(r));
    }
    return rows;
}

void ListFilter::setFindText(const QString& text)
{
    FindWords words(text);
    if (words == m_words)
        return;
    if (!words.isEmpty())
        prepare();
    const bool narrowing = words.narrows(m_words);
    m_words = std::move(words);
    showRows(matchingRows(narrowing ? &m_shown : nullptr));
}

// One layout change for the whole refilter: the views keep their current row and the
// selection of rows still shown; hidden rows' indexes become invalid, so they leave it.
void ListFilter::showRows(std::vector<int> rows)
{
    emit layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    QList<int> sourceRows;
    sourceRows.reserve(before.size());
    for (const QModelIndex& index : before)
        sourceRows.append(m_shown[std::size_t(index.row())]);
    m_shown = std::move(rows);
    QModelIndexList after;
    after.reserve(before.size());
    for (qsizetype i = 0; i < before.size(); ++i) {
        const int row = proxyRowOf(sourceRows[i]);
        after.append(row < 0 ? QModelIndex() : createIndex(row, before[i].column()));
    }
    changePersistentIndexList(before, after);
    emit layoutChanged();
    announceCounts();
}

int ListFilter::proxyRowOf(int sourceRow) const
{
    const auto at = std::lower_bound(m_shown.begin(), m_shown.end(), sourceRow);
    return at != m_shown.end() && *at == sourceRow ? int(at - m_shown.begin()) : -1;
}

void ListFilter::sourceRowsInserted(int first, int last)
{
    const int added = last - first + 1;
    insertKeys(first, last);
    const auto at = std::lower_bound(m_shown.begin(), m_shown.end(), first);
    const int proxyFirst = int(at - m_shown.begin());
    for (auto it = at; it != m_shown.end(); ++it)
        *it += added;
    std::vector<int> shown;
    for (int r = first; r <= last; ++r) {
        if (m_words.isEmpty() || m_words.matches(m_keys[std::size_t(r)]))
            shown.push_back(r);
    }
    if (!shown.empty()) {
        beginInsertRows({}, proxyFirst, proxyFirst + int(shown.size()) - 1);
        m_shown.insert(m_shown.begin() + proxyFirst, shown.begin(), shown.end());
        endInsertRows();
    }
    announceCounts();
}

// The shown rows go before the list's rows do; the rows below move up once they have gone.
void ListFilter::sourceRowsAboutToBeRemoved(int first, int last)
{
    const auto from = std::lower_bound(m_shown.begin(), m_shown.end(), first);
    const auto to = std::lower_bound(from, m_shown.end(), last + 1);
    if (from == to)
        return;
    const int proxyFirst = int(from - m_shown.begin());
    beginRemoveRows({}, proxyFirst, proxyFirst + int(to - from) - 1);
    m_shown.erase(from, to);
    endRemoveRows();
}

void ListFilter::sourceRowsRemoved(int first, int last)
{
    const int removed = last - first + 1;
    if (m_keysReady)
        m_keys.erase(m_keys.begin() + first, m_keys.begin() + last + 1);
    for (auto it = std::lower_bound(m_shown.begin(), m_shown.end(), first); it != m_shown.end();
         ++it)
        *it -= removed;
    announceCounts();
}

// An edited row stays in sight even when its new name no longer matches.
void ListFilter::sourceDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight)
{
    if (!topLeft.isValid() || !bottomRight.isValid())
        return;
    int firstShown = -1;
    int lastShown = -1;
    for (int r = topLeft.row(); r <= bottomRight.row(); ++r) {
        if (m_keysReady)
            m_keys[std::size_t(r)] = keyOfSourceRow(r);
        if (const int row = proxyRowOf(r); row >= 0) {
            firstShown = firstShown < 0 ? row : firstShown;
            lastShown = row;
        }
    }
    if (firstShown >= 0)
        emit dataChanged(index(firstShown, topLeft.column()),
                         index(lastShown, bottomRight.column()));
}

void ListFilter::sourceLayoutChanged()
{
    rebuildKeys();
    m_shown = matchingRows(nullptr);
    QModelIndexList after;
    after.reserve(m_layoutBefore.size());
    for (const QPersistentModelIndex& source : std::as_const(m_layoutSources))
        after.append(mapFromSource(source));
    changePersistentIndexList(m_layoutBefore, after);
    m_layoutBefore.clear();
    m_layoutSources.clear();
    emit layoutChanged();
}

void ListFilter::sourceReset()
{
    rebuildKeys();
    m_shown = matchingRows(nullptr);
    endResetModel();
    announceCounts();
}

int ListFilter::totalCount() const
{
    return m_list.rowCount();
}

int ListFilter::positionOf(const QModelIndex& index) const
{
    return m_list.positionOf(mapToSource(index));
}

std::vector<int> ListFilter::positionsOf(const QModelIndexList& rows) const
{
    std::vector<int> positions;
    positions.reserve(std::size_t(rows.size()));
    for (const QModelIndex& index : rows) {
        if (const int position = positionOf(index); position >= 0)
            positions.push_back(position);
    }
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    return positions;
}

QModelIndex ListFilter::indexAt(int position, Column column) const
{
    return mapFromSource(m_list.indexAt(position, column));
}

QModelIndex ListFilter::mapToSource(const QModelIndex& proxyIndex) const
{
    if (!proxyIndex.isValid() || proxyIndex.model() != this ||
        proxyIndex.row() >= int(m_shown.size()))
        return {};
    return m_list.index(m_shown[std::size_t(proxyIndex.row())], proxyIndex.column());
}

QModelIndex ListFilter::mapFromSource(const QModelIndex& sourceIndex) const
{
    if (!sourceIndex.isValid() || sourceIndex.model() != &m_list)
        return {};
    const int row = proxyRowOf(sourceIndex.row());
    return row < 0 ? QModelIndex() : createIndex(row, sourceIndex.column());
}

QModelIndex ListFilter::index(int row, int column, const QModelIndex& parent) const
{
    if (parent.isValid() || row < 0 || row >= int(m_shown.size()) || column < 0 ||
        column >= kColumnCount)
        return {};
    return createIndex(row, column);
}

QModelIndex ListFilter::parent(const QModelIndex&) const
{
    return {};
}

int ListFilter::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_shown.size());
}

bool ListFilter::hasChildren(const QModelIndex& parent) const
{
    return !parent.isValid() && !m_shown.empty();
}

int ListFilter::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumnCount;
}

// The captions stay when no row is shown.
QVariant ListFilter::headerData(int section, Qt::Orientation orientation, int role) const
{
    return m_list.headerData(section, orientation, role);
}

} // namespace nubo::catalogue
