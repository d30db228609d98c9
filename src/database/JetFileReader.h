// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/JetPageStore.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace nubo::database::jet {

// A column as a table definition describes it.
struct ColumnInfo
{
    QString name;
    quint8 type = 0;
    quint16 number = 0;
    quint16 varIndex = 0;
    quint16 fixedOffset = 0;
    quint16 size = 0;
    bool fixed = false;
};

struct TableInfo
{
    quint32 definitionPage = 0;
    quint32 rowCount = 0;     // as the definition states it
    quint32 usedPagesMap = 0; // the row holding the usage map of its pages: page << 8 | row
    QList<ColumnInfo> columns;
};

// Reads tables out of a Jet 4 file held in memory. Every page, row and field is bounds-checked:
// damaged data gives fewer rows or empty fields, never a read outside the file.
class JetFileReader final
{
public:
    enum class Kind { Jet4, OlderJet, NotJet };

    explicit JetFileReader(QByteArray file);
    // A file read in blocks (JetPageStore).
    explicit JetFileReader(QList<QByteArray> blocks);
    Kind kind() const { return m_kind; }
    qsizetype fileSize() const { return m_pages.size(); }

    std::optional<TableInfo> table(quint32 definitionPage) const;
    // The user tables (name and definition page) the catalogue lists.
    QList<std::pair<QString, quint32>> userTables();
    // Calls visit with the fields of each live row, data pages in file order (or the reverse,
    // last row first); visit returns false to stop. Fields are texts: numbers as digits, dates
    // as "yyyy-MM-dd hh:mm", long texts (memos) whole.
    enum class Walk { FileOrder, LastFirst, LastFirstFreeing };
    // With LastFirstFreeing, each block of pages that holds only the table's rows is freed once
    // its rows are visited: later walks find none of them.
    void forEachRow(const TableInfo& table, const std::function<bool(const QList<QString>&)>& visit,
                    Walk walk = Walk::FileOrder);
    // The live rows forEachRow would visit.
    qsizetype liveRowCount(const TableInfo& table) const;

    // Empty when the table's usage map and its data pages agree; otherwise what differs: a page
    // the map lists that is not one of the table's data pages, or the other way round.
    QString usageMapDamage(const TableInfo& table) const;

private:
    QByteArrayView page(quint32 number) const;
    std::optional<QList<quint32>> mappedPages(const TableInfo& table) const;
    QByteArray definition(quint32 firstPage) const;
    QByteArrayView rowOf(quint32 pageNumber, quint32 row, int hops = 0) const;
    QList<QString> fields(const TableInfo& table, QByteArrayView row) const;
    QString memoText(QByteArrayView field) const;
    bool ownsPage(const TableInfo& table, quint32 number) const;

    QList<bool> freeableBlocks(const TableInfo& table) const;

    JetPageStore m_pages;
    Kind m_kind = Kind::NotJet;
};

} // namespace nubo::database::jet
