// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The list as the list window shows it: the catalogue rows that match the words of a find,
// in the list's order. It is a view over CatalogueList, never a change to it: the rows, their
// order and the saved file stay as they are. Sorting the list reorders the shown rows too.
//
// The view's selection lives in its selection model over this filter: a row the filter hides
// leaves the selection with its index, so deleting and enqueueing selected rows work on rows
// in sight only (positionsOf maps them to the list's positions).
//
// Each row's folded key (FindWords::keyOf) is kept in step with the list's inserts, removals,
// edits and sorts, and a find that narrows the previous one tests only the rows shown.

#include "catalogue/CatalogueRow.h"
#include "catalogue/DetailKeyText.h"
#include "catalogue/FindWords.h"

#include <QAbstractProxyModel>

#include <string>
#include <vector>

namespace nubo::catalogue {

class CatalogueList;

class ListFilter final : public QAbstractProxyModel
{
    Q_OBJECT
public:
    explicit ListFilter(CatalogueList& list, QObject* parent = nullptr);

    void setFindText(const QString& text);
    int shownCount() const { return int(m_shown.size()); }
    int totalCount() const;
    // Folds every row's key now, so that the first letter typed does not wait for it (the find
    // bar asks when it opens); from then on the keys follow the list. Until then adding rows
    // costs nothing more.
    void prepare();

    // View index <-> the list's position (see CatalogueList).
    int positionOf(const QModelIndex& index) const;
    // The list positions of view rows, ascending, each once.
    std::vector<int> positionsOf(const QModelIndexList& rows) const;
    QModelIndex indexAt(int position, Column column = Column::Nombre) const;

    // QAbstractProxyModel
    QModelIndex mapToSource(const QModelIndex& proxyIndex) const override;
    QModelIndex mapFromSource(const QModelIndex& sourceIndex) const override;
    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

signals:
    // The rows shown and the rows the list holds, after any change of either.
    void countsChanged(int shown, int total);

private:
    const CatalogueRow& sourceRow(int row) const;
    std::string keyOfSourceRow(int row) const;
    void rebuildKeys();
    void insertKeys(int first, int last);
    std::vector<int> matchingRows(const std::vector<int>* among) const;
    void showRows(std::vector<int> rows);
    int proxyRowOf(int sourceRow) const;

    void sourceRowsInserted(int first, int last);
    void sourceRowsAboutToBeRemoved(int first, int last);
    void sourceRowsRemoved(int first, int last);
    void sourceDataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight);
    void sourceLayoutChanged();
    void sourceReset();
    void announceCounts() { emit countsChanged(shownCount(), totalCount()); }

    CatalogueList& m_list;
    FindWords m_words;
    mutable DetailKeyText m_numbers;
    bool m_keysReady = false;
    std::vector<std::string> m_keys; // one per source row, once prepared
    std::vector<int> m_shown;        // the source rows shown, ascending
    // Across a source layout change: the persistent indexes and the source rows they showed.
    QModelIndexList m_layoutBefore;
    QList<QPersistentModelIndex> m_layoutSources;
};

} // namespace nubo::catalogue
