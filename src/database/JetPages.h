// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/JetSchema.h"

#include <QByteArray>
#include <QList>

#include <optional>

namespace nubo::database::jet {

// Fills one data page with rows, placed from the page's end towards its row table.
class DataPage final
{
public:
    explicit DataPage(quint32 owner);

    // Adds the row and returns its number in the page, or nothing when it does not fit.
    std::optional<quint8> add(const QByteArray& row);
    int rowCount() const { return int(m_offsets.size()); }
    QByteArray bytes() const;

private:
    int freeSpace() const;

    quint32 m_owner;
    QByteArray m_page;
    QList<quint16> m_offsets;
    int m_top = int(kPageSize);
};

// The largest row a data page holds.
inline constexpr int kMaxRowSize = int(kPageSize) - 14 - 2;

// A leaf index page holding the given entries (key bytes followed by their row address),
// which must already be sorted.
QByteArray indexLeafPage(quint32 owner, const QList<QByteArray>& entries);

// An index entry: key bytes, then the row's page (3 bytes, high first) and row number.
QByteArray indexEntry(const QByteArray& key, RowRef row);

// Index key of a Long value, ascending.
QByteArray longKey(qint32 value);
// Index key of an object name in the general sort order (letters and digits only).
QByteArray nameKey(const QString& name);

// A usage map row listing the given pages: inline when they fit in its window, otherwise a
// reference map whose bitmap pages are returned in mapPages (to be written at firstMapPage on).
QByteArray usageMapRow(const QList<quint32>& pages, quint32 firstMapPage,
                       QList<QByteArray>* mapPages);

// The database header page for a new database in the general sort order, code page 1252.
QByteArray headerPage(double created);

// The database's page allocation map: every one of pageCount pages is in use.
QByteArray allocationPage(quint32 pageCount);

} // namespace nubo::database::jet
