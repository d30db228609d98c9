// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace nubo::database::jet {

inline constexpr qsizetype kPageSize = 4096;

// Column types as the database engine numbers them.
enum ColumnType : quint8 {
    kBoolean = 1,
    kByte = 2,
    kInteger = 3,
    kLong = 4,
    kDouble = 7,
    kDateTime = 8,
    kBinary = 9,
    kText = 10,
    kOle = 11,
    kMemo = 12,
};

// The bits of a column descriptor's flags byte, then of the extended flags byte after it, as
// mdbtools' HACKING.md documents them ("Table Definition Pages", "Columns flags").
inline constexpr quint8 kFixedColumn = 0x01;     // fixed length
inline constexpr quint8 kUpdatableColumn = 0x02; // may be written; every column here has it
inline constexpr quint8 kEngineColumn = 0x10;    // kept by the engine: the system tables' columns
inline constexpr quint8 kSidColumn = 0x20;       // holds a security identifier (Owner, SID)
inline constexpr quint8 kCompressedText = 0x01;  // extended: text in compressed Unicode

// The bits of a physical index definition's flags byte (same document, "Index flags").
inline constexpr quint8 kUniqueIndex = 0x01;
inline constexpr quint8 kIgnoreNullsIndex = 0x02;
inline constexpr quint8 kRequiredIndex = 0x08;
inline constexpr quint8 kJet4Index = 0x80; // set by the Jet 4 engine on every index it writes

// A row address: (page, row within the page), as usage maps and indexes store it.
struct RowRef
{
    quint32 page = 0;
    quint8 row = 0;
};

struct Column
{
    QString name;
    quint8 type = kText;
    quint16 number = 0;
    quint16 length = 0; // bytes; 0 for long values
    quint8 flags = kUpdatableColumn;
    quint8 extFlags = 0;

    bool isFixed() const { return (flags & kFixedColumn) != 0; }
};

struct Index
{
    QString name;
    quint32 number = 0;
    QList<quint16> columns; // ascending
    quint8 flags = 0;
    bool primaryKey = false;
    quint32 rootPage = 0;
    RowRef usageMap;
};

// Usage maps of one long-value column.
struct LongValueMaps
{
    quint16 column = 0;
    RowRef used;
    RowRef free;
};

// A table definition: columns in descriptor order, indexes in name order.
struct Table
{
    QString name;
    bool system = false;
    QList<Column> columns;
    QList<Index> indexes;
    QList<LongValueMaps> longValueMaps;
    RowRef usedPages;
    RowRef freePages;
    quint32 rowCount = 0;
};

// Where each column sits in a stored row.
struct RowLayout
{
    QList<int> fixedOffset; // by column number; -1 for variable and boolean columns
    QList<int> varIndex;    // by column number; -1 for fixed columns
    int fixedSize = 0;
    int varCount = 0;
    int columnCount = 0;
    QList<Column> byNumber;
};

RowLayout layoutOf(const Table& table);

// The table definition page (a definition longer than one page is not needed here).
QByteArray tableDefinitionPage(const Table& table);

} // namespace nubo::database::jet
