// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/JetSchema.h"

#include "database/ByteSink.h"

namespace nubo::database::jet {
namespace {

constexpr quint32 kEngineStamp = 0x0659;      // written by the engine in definitions
constexpr quint32 kIndexStamp = 0x0783;       // leads every physical index definition
constexpr quint16 kGeneralSortOrder = 0x0409; // the general sort order, English locale
constexpr quint8 kSystemTable = 0x53;
constexpr quint8 kUserTable = 0x4E;

void putRowRef(ByteSink& sink, RowRef ref)
{
    sink.u32(ref.row | (ref.page << 8));
}

void appendColumns(ByteSink& sink, const Table& table, const RowLayout& layout)
{
    for (const Column& c : table.columns) {
        sink.u8(c.type);
        sink.u32(kEngineStamp);
        sink.u16(c.number);
        sink.u16(quint32(std::max(0, layout.varIndex.at(c.number))));
        sink.u16(c.number);
        sink.u16(kGeneralSortOrder);
        sink.u16(0);
        sink.u8(c.flags);
        sink.u8(c.extFlags);
        sink.u32(0);
        sink.u16(quint32(std::max(0, layout.fixedOffset.at(c.number))));
        sink.u16(c.length);
    }
    for (const Column& c : table.columns) {
        sink.u16(quint32(c.name.size() * 2));
        sink.utf16(c.name);
    }
}

void appendIndexes(ByteSink& sink, const Table& table)
{
    QList<const Index*> physical(table.indexes.size());
    for (const Index& index : table.indexes)
        physical[index.number] = &index;
    for (const Index* index : physical) {
        sink.u32(kIndexStamp);
        for (int i = 0; i < 10; ++i) {
            const bool used = i < index->columns.size();
            sink.u16(used ? index->columns.at(i) : 0xFFFF);
            sink.u8(used ? 1 : 0);
        }
        putRowRef(sink, index->usageMap);
        sink.u32(index->rootPage);
        sink.u32(0);
        sink.u8(index->flags);
        sink.zeros(5);
    }
    for (const Index& index : table.indexes) {
        sink.u32(kEngineStamp);
        sink.u32(index.number);
        sink.u32(index.number);
        sink.u8(0);
        sink.u32(0xFFFFFFFF); // no relationship
        sink.u32(0);
        sink.u8(4);
        sink.u8(4);
        sink.u8(index.primaryKey ? 1 : 0);
        sink.u32(0);
    }
    for (const Index& index : table.indexes) {
        sink.u16(quint32(index.name.size() * 2));
        sink.utf16(index.name);
    }
}

} // namespace

RowLayout layoutOf(const Table& table)
{
    RowLayout layout;
    layout.columnCount = int(table.columns.size());
    layout.byNumber.resize(layout.columnCount);
    for (const Column& c : table.columns)
        layout.byNumber[c.number] = c;
    layout.fixedOffset.fill(-1, layout.columnCount);
    layout.varIndex.fill(-1, layout.columnCount);
    for (const Column& c : std::as_const(layout.byNumber)) {
        if (!c.isFixed()) {
            layout.varIndex[c.number] = layout.varCount++;
        } else if (c.type != kBoolean) { // booleans live in the null mask
            layout.fixedOffset[c.number] = layout.fixedSize;
            layout.fixedSize += c.length;
        }
    }
    return layout;
}

QByteArray tableDefinitionPage(const Table& table)
{
    const RowLayout layout = layoutOf(table);
    QByteArray page;
    ByteSink sink(page);
    sink.u8(0x02);
    sink.u8(0x01);
    sink.u16(0); // patched: free space
    sink.u32(0); // no continuation page
    sink.u32(0); // patched: definition length
    sink.u32(kEngineStamp);
    sink.u32(table.rowCount);
    sink.u32(0); // next autonumber
    sink.u32(1);
    sink.zeros(12);
    sink.u8(table.system ? kSystemTable : kUserTable);
    sink.u16(quint32(layout.columnCount));
    sink.u16(quint32(layout.varCount));
    sink.u16(quint32(layout.columnCount));
    sink.u32(quint32(table.indexes.size()));
    sink.u32(quint32(table.indexes.size()));
    putRowRef(sink, table.usedPages);
    putRowRef(sink, table.freePages);
    for (int i = 0; i < table.indexes.size(); ++i) {
        sink.u32(0);
        sink.u32(table.rowCount);
        sink.u32(0);
    }
    appendColumns(sink, table, layout);
    appendIndexes(sink, table);
    for (const LongValueMaps& maps : table.longValueMaps) {
        sink.u16(maps.column);
        putRowRef(sink, maps.used);
        putRowRef(sink, maps.free);
    }
    sink.u16(0xFFFF);
    sink.zeros(8);
    ByteSink::put32(page, 8, quint32(page.size() - 8));
    ByteSink::put16(page, 2, quint32(kPageSize - page.size()));
    page.resize(kPageSize, '\0');
    return page;
}

} // namespace nubo::database::jet
