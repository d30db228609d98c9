// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueRow.h"

#include <QAbstractTableModel>
#include <QTimer>

#include <deque>
#include <utility>
#include <vector>

namespace nubo::catalogue {

// Whether a column sorts as numbers (sizes, dates, years, tracks, durations).
bool isNumericColumn(Column column);

// The catalogue list: the ordered rows the list window shows, newest first. Positions are
// 0-based over all rows, 0 being the top row (the most recently added). Rows come from paths
// through Catalogue::AddFileToList, the one way a found or dropped file becomes a row.
//
// As a Qt model it has a column for each of Column. Rows added at the top or the bottom are
// announced to views in batches (at most every kFlushIntervalMs, and before any other change), so a
// long search or load costs one view update per batch rather than one per row: rowCount() may lag
// count().
class CatalogueList final : public QAbstractTableModel
{
    Q_OBJECT
public:
    static constexpr int kFlushIntervalMs = 100;

    explicit CatalogueList(QObject* parent = nullptr);

    int count() const { return static_cast<int>(m_rows.size()); }
    bool isEmpty() const { return m_rows.empty(); }
    const CatalogueRow& row(int position) const { return m_rows[storageIndex(position)]; }

    // Both O(1): the new row becomes the top or the last position.
    void insertAtTop(CatalogueRow row);
    void appendAtBottom(CatalogueRow row);
    void removeAt(int position);
    void clear();
    // The program is ending: the list empties as clear() empties it, but the rows are only
    // freed with the list, so the end is not held up by freeing a million rows (the program's
    // end then skips freeing them at all).
    void clearForExit();
    // Positions in any order; repeated or out-of-range ones count once or not at all.
    int removePositions(std::vector<int> positions); // how many went
    // Stable. Text columns in the locale's collation, blind to case; TAMAÑO, FECHA, AÑO, PISTA
    // and DURACION as numbers, unknown values below every known one.
    void sortByColumn(Column column, Qt::SortOrder order);
    // Every row of group from takes the name to, all sharing one copy of it; returns how many.
    int renameGroup(const QString& from, const QString& to);
    bool hasGroup(const QString& origen) const;

    // A row named in a way that outlives rows added at the top or the bottom; any removal,
    // sort or clear makes every handle taken before it stale.
    struct RowHandle
    {
        quint64 generation = 0;
        qint64 slot = 0;
    };
    RowHandle handleOf(int position) const;
    // -1 for a stale handle.
    int positionOf(RowHandle handle) const;
    // Details read for rows: rows gone since are skipped; the views hear of the batch once.
    void setDetails(const QList<std::pair<RowHandle, core::FileDetails>>& batch);

    // Announces pending rows to the views now.
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
    std::vector<int> sortedByNumber(Column column, Qt::SortOrder order) const;
    void scheduleFlush();

    std::deque<CatalogueRow> m_rows;
    std::deque<CatalogueRow> m_keptForExit;
    int m_pendingBottom =
        0;           // rows added at the bottom, not yet announced: m_rows[0, m_pendingBottom)
    int m_shown = 0; // rows announced to views: m_rows[m_pendingBottom, m_pendingBottom + m_shown)
    QTimer m_flushTimer;
    quint64 m_generation = 0; // counts the changes that make row handles stale
    qint64 m_bottomAdds = 0;  // rows ever added at the bottom
};

} // namespace nubo::catalogue
