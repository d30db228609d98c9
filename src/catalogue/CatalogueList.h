// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The catalogue list: the ordered rows the list window shows, newest first.
//
// API (stable; the search, database and print subsystems build on it):
//   Positions are 0-based over all rows, 0 = the top row (the most recently added).
//   int count() const                       number of rows
//   const CatalogueRow& row(int p) const    the row at position p
//   void insertAtTop(CatalogueRow)          O(1): the new row becomes position 0
//   void appendAtBottom(CatalogueRow)       O(1): the new row becomes the last position
//   void removeAt(int p), void clear()
//   int removePositions(std::vector<int>)   removes the rows at those positions; returns how many
//   void sortByColumn(Column, Qt::SortOrder)  stable, the locale's collation, case-blind
//   void flush()                            announces pending rows to the views now
//   int positionOf(QModelIndex), QModelIndex indexAt(int p)   view <-> position
// Rows are derived from paths by Catalogue::AddFileToList (Catalogue.h), the one way in
// which a found or dropped file becomes a row.
//
// As a Qt model it is a five-column table. Rows added at the top or the bottom are announced
// to views in batches (at most every kFlushIntervalMs, and before any other change), so a long
// search or load costs one view update per batch rather than one per row: rowCount() may lag
// count().

#include "catalogue/CatalogueRow.h"

#include <QAbstractTableModel>
#include <QTimer>

#include <deque>
#include <vector>

namespace nubo::catalogue {

class CatalogueList final : public QAbstractTableModel
{
    Q_OBJECT
public:
    static constexpr int kFlushIntervalMs = 100;

    explicit CatalogueList(QObject* parent = nullptr);

    int count() const { return static_cast<int>(m_rows.size()); }
    bool isEmpty() const { return m_rows.empty(); }
    const CatalogueRow& row(int position) const { return m_rows[storageIndex(position)]; }

    void insertAtTop(CatalogueRow row);
    void appendAtBottom(CatalogueRow row);
    void removeAt(int position);
    void clear();
    // Positions in any order; repeated or out-of-range ones count once or not at all.
    int removePositions(std::vector<int> positions);
    void sortByColumn(Column column, Qt::SortOrder order);

    void flush();
    int pendingCount() const { return count() - m_shown; }
    // Rows added at the top and not yet shown: the shift between positions and view rows.
    int pendingTop() const { return count() - m_shown - m_pendingBottom; }
    int positionOf(const QModelIndex& index) const;
    QModelIndex indexAt(int position, Column column = Column::Nombre) const;

    // QAbstractItemModel
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    // Rows are stored bottom first, so adding at the top is an append.
    std::size_t storageIndex(int position) const { return m_rows.size() - 1 - position; }
    // The stored row a view row shows.
    std::size_t shownIndex(int viewRow) const
    {
        return std::size_t(m_pendingBottom + m_shown - 1 - viewRow);
    }
    void removeStorageRange(std::size_t first, std::size_t last);
    void removeByReset(const std::vector<int>& positions);
    std::vector<int> sortedPositions(Column column, Qt::SortOrder order) const;
    void scheduleFlush();

    std::deque<CatalogueRow> m_rows;
    int m_pendingBottom =
        0;           // rows added at the bottom, not yet announced: m_rows[0, m_pendingBottom)
    int m_shown = 0; // rows announced to views: m_rows[m_pendingBottom, m_pendingBottom + m_shown)
    QTimer m_flushTimer;
};

} // namespace nubo::catalogue
