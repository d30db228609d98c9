// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/JetSystemTables.h"

#include "database/ByteSink.h"
#include "database/JetPages.h"

#include <algorithm>

namespace nubo::database::jet {
namespace {

constexpr qint32 kTablesContainer = 0x0F000001;
constexpr qint32 kDatabasesContainer = 0x0F000002;
constexpr qint32 kRelationshipsContainer = 0x0F000003;
constexpr qint32 kRootContainer = 0x0F000000;
constexpr qint32 kDatabaseObject = 0x10000000;
constexpr qint32 kSystemObjectFlags = qint32(0x80000000);
constexpr qint16 kTableObject = 1;
constexpr quint8 kEngineFixed = kFixedColumn | kNullableColumn | kEngineColumn;
constexpr quint8 kEngineVariable = kNullableColumn | kEngineColumn;

// The engine's short security identifiers.
const QByteArray kEngineSid = QByteArray::fromHex("6589");
const QByteArray kCreatorSid = QByteArray::fromHex("648B");
const QByteArray kCreatorOwnerSid = QByteArray::fromHex("658E"); // stands for whoever creates
const QByteArray kAdminsSid = QByteArray::fromHex("658B");

Column column(const QString& name, quint8 type, quint16 number, quint8 flags = 0)
{
    Column c;
    c.name = name;
    c.type = type;
    c.number = number;
    switch (type) {
    case kBoolean:
    case kByte:
        c.length = 1;
        break;
    case kInteger:
        c.length = 2;
        break;
    case kLong:
        c.length = 4;
        break;
    case kDateTime:
        c.length = 8;
        break;
    case kText:
    case kBinary:
        c.length = 510;
        break;
    default:
        c.length = 0;
    }
    const bool fixed =
        type == kBoolean || type == kByte || type == kInteger || type == kLong || type == kDateTime;
    c.flags = flags != 0 ? flags : (fixed ? kEngineFixed : kEngineVariable);
    return c;
}

// The engine keeps the descriptors of its own tables in name order.
void sortByName(Table& table)
{
    std::sort(table.columns.begin(), table.columns.end(), [](const Column& a, const Column& b) {
        return a.name.compare(b.name, Qt::CaseInsensitive) < 0;
    });
}

Index index(const QString& name, quint32 number, QList<quint16> columns, quint8 flags, quint32 root,
            quint8 mapRow, bool primaryKey = false)
{
    return Index{name,
                 number,
                 std::move(columns),
                 flags,
                 primaryKey,
                 root,
                 RowRef{page::kUsageMaps, mapRow}};
}

RowRef mapRow(quint8 row)
{
    return RowRef{page::kUsageMaps, row};
}

LongValueMaps lvMaps(quint16 columnNumber, quint8 usedRow)
{
    return LongValueMaps{columnNumber, mapRow(usedRow), mapRow(quint8(usedRow + 1))};
}

QByteArray inlineMap(const QList<quint32>& pages)
{
    QByteArray row;
    ByteSink sink(row);
    sink.u8(0);
    sink.u32(0);
    QByteArray bitmap(64, '\0');
    for (const quint32 p : pages)
        bitmap[p / 8] = char(bitmap[p / 8] | (1 << (p % 8)));
    sink.bytes(bitmap);
    return row;
}

} // namespace

Table objectsTable()
{
    Table t;
    t.name = QStringLiteral("MSysObjects");
    t.system = true;
    t.columns = {column("Id", kLong, 0),
                 column("ParentId", kLong, 1),
                 column("Name", kText, 2),
                 column("Type", kInteger, 3),
                 column("DateCreate", kDateTime, 4),
                 column("DateUpdate", kDateTime, 5),
                 column("Owner", kBinary, 6, 0x32),
                 column("Flags", kLong, 7),
                 column("Database", kMemo, 8),
                 column("Connect", kMemo, 9),
                 column("ForeignName", kText, 10),
                 column("RmtInfoShort", kBinary, 11),
                 column("RmtInfoLong", kOle, 12),
                 column("Lv", kOle, 13),
                 column("LvProp", kOle, 14),
                 column("LvModule", kOle, 15),
                 column("LvExtra", kOle, 16)};
    sortByName(t);
    t.indexes = {index("Id", 1, {0}, 0x81, page::kObjectsById, 17, true),
                 index("ParentIdName", 0, {1, 2}, 0x81, page::kObjectsByName, 16)};
    t.longValueMaps = {lvMaps(9, 4),   lvMaps(8, 2),   lvMaps(13, 8), lvMaps(16, 14),
                       lvMaps(15, 12), lvMaps(14, 10), lvMaps(12, 6)};
    t.usedPages = mapRow(0);
    t.freePages = mapRow(1);
    return t;
}

Table acesTable()
{
    Table t;
    t.name = QStringLiteral("MSysACEs");
    t.system = true;
    t.columns = {column("ObjectId", kLong, 0), column("SID", kBinary, 1, 0x32),
                 column("ACM", kLong, 2), column("FInheritable", kBoolean, 3)};
    sortByName(t);
    t.indexes = {index("ObjectId", 0, {0}, 0x88, page::kAcesByObject, 20)};
    t.usedPages = mapRow(18);
    t.freePages = mapRow(19);
    return t;
}

Table queriesTable()
{
    Table t;
    t.name = QStringLiteral("MSysQueries");
    t.system = true;
    t.columns = {column("ObjectId", kLong, 0), column("Attribute", kByte, 1),
                 column("Order", kBinary, 2),  column("Name1", kText, 3),
                 column("Name2", kText, 4),    column("Expression", kMemo, 5),
                 column("Flag", kInteger, 6),  column("LvExtra", kLong, 7)};
    sortByName(t);
    t.indexes = {index("ObjectIdAttribute", 0, {0, 1, 2}, 0x81, page::kQueriesIndex, 25, true)};
    t.longValueMaps = {lvMaps(5, 23)};
    t.usedPages = mapRow(21);
    t.freePages = mapRow(22);
    return t;
}

Table relationshipsTable()
{
    Table t;
    t.name = QStringLiteral("MSysRelationships");
    t.system = true;
    t.columns = {column("szRelationship", kText, 0),
                 column("grbit", kLong, 1),
                 column("ccolumn", kLong, 2),
                 column("icolumn", kLong, 3),
                 column("szObject", kText, 4),
                 column("szColumn", kText, 5),
                 column("szReferencedObject", kText, 6),
                 column("szReferencedColumn", kText, 7)};
    sortByName(t);
    const quint32 first = page::kRelationshipsIndexes;
    t.indexes = {index("szObject", 1, {4}, 0x82, first + 1, 29),
                 index("szReferencedObject", 2, {6}, 0x82, first + 2, 30),
                 index("szRelationship", 0, {0}, 0x82, first, 28)};
    t.usedPages = mapRow(26);
    t.freePages = mapRow(27);
    return t;
}

SystemCatalog::SystemCatalog(const QString& userTable, double created) : m_created(created)
{
    const qint32 sys = kSystemObjectFlags;
    m_objects = {
        {kTablesContainer, kRootContainer, QStringLiteral("Tables"), 3, kEngineSid, sys},
        {kDatabasesContainer, kRootContainer, QStringLiteral("Databases"), 3, kEngineSid, sys},
        {kRelationshipsContainer, kRootContainer, QStringLiteral("Relationships"), 3, kEngineSid,
         sys},
        {kDatabaseObject, kDatabasesContainer, QStringLiteral("MSysDb"), 2, kCreatorSid, sys},
        {qint32(page::kObjects), kTablesContainer, QStringLiteral("MSysObjects"), 1, kEngineSid,
         sys},
        {qint32(page::kAces), kTablesContainer, QStringLiteral("MSysACEs"), 1, kEngineSid, sys},
        {qint32(page::kQueries), kTablesContainer, QStringLiteral("MSysQueries"), 1, kEngineSid,
         sys},
        {qint32(page::kRelationships), kTablesContainer, QStringLiteral("MSysRelationships"), 1,
         kEngineSid, sys},
        {qint32(page::kUserTable), kTablesContainer, userTable, kTableObject, kCreatorSid, 0},
    };
    m_aces = {
        {2, kCreatorSid, 393216, false},
        {3, kCreatorSid, 393216, false},
        {4, kCreatorSid, 393216, false},
        {5, kCreatorSid, 917504, false},
        {kTablesContainer, kCreatorOwnerSid, 983294, true},
        {kTablesContainer, kCreatorSid, 393217, false},
        {kRelationshipsContainer, kCreatorOwnerSid, 983294, true},
        {kRelationshipsContainer, kCreatorSid, 393217, false},
        {kDatabasesContainer, kCreatorSid, 393216, false},
        {kDatabaseObject, kCreatorSid, 393230, false},
        {kDatabaseObject, kAdminsSid, 14, false},
        {4, kAdminsSid, 20, false},
        {5, kAdminsSid, 20, false},
        {2, kAdminsSid, 20, false},
        {kTablesContainer, kAdminsSid, 1048319, true},
        {kRelationshipsContainer, kAdminsSid, 1048575, true},
    };
    // A new table inherits the tables container's inheritable entries; the creator-owner
    // entry becomes the creator's own.
    const QList<Ace> existing = m_aces;
    for (const Ace& ace : existing) {
        if (ace.objectId == kTablesContainer && ace.inheritable) {
            const QByteArray sid = ace.sid == kCreatorOwnerSid ? kCreatorSid : ace.sid;
            m_aces.append({qint32(page::kUserTable), sid, ace.accessMask, false});
        }
    }
}

QByteArray SystemCatalog::objectsDataPage(QList<QByteArray>& byName, QList<QByteArray>& byId) const
{
    const Table table = objectsTable();
    const RowLayout layout = layoutOf(table);
    DataPage data(page::kObjects);
    for (const Object& o : m_objects) {
        QList<Value> values(layout.columnCount);
        values[0] = qint64(o.id);
        values[1] = qint64(o.parentId);
        values[2] = o.name;
        values[3] = qint64(o.type);
        values[4] = m_created;
        values[5] = m_created;
        values[6] = o.owner;
        values[7] = qint64(o.flags);
        const quint8 row = *data.add(encodeRow(layout, values));
        const RowRef ref{page::kObjectsData, row};
        byName.append(indexEntry(longKey(o.parentId) + nameKey(o.name), ref));
        byId.append(indexEntry(longKey(o.id), ref));
    }
    std::sort(byName.begin(), byName.end());
    std::sort(byId.begin(), byId.end());
    return data.bytes();
}

QByteArray SystemCatalog::acesDataPage(QList<QByteArray>& byObject) const
{
    const RowLayout layout = layoutOf(acesTable());
    DataPage data(page::kAces);
    for (const Ace& ace : m_aces) {
        const QList<Value> values = {qint64(ace.objectId), ace.sid, qint64(ace.accessMask),
                                     qint64(ace.inheritable ? 1 : 0)};
        const quint8 row = *data.add(encodeRow(layout, values));
        byObject.append(indexEntry(longKey(ace.objectId), {page::kAcesData, row}));
    }
    std::sort(byObject.begin(), byObject.end());
    return data.bytes();
}

QByteArray SystemCatalog::usageMapPage(const QByteArray& userMapUsed,
                                       const QByteArray& userMapFree) const
{
    QList<QList<quint32>> maps(kUserTableUsedMap);
    maps[0] = maps[1] = {page::kObjectsData};
    maps[16] = {page::kObjectsByName};
    maps[17] = {page::kObjectsById};
    maps[18] = maps[19] = {page::kAcesData};
    maps[20] = {page::kAcesByObject};
    maps[25] = {page::kQueriesIndex};
    for (quint32 i = 0; i < 3; ++i)
        maps[28 + i] = {page::kRelationshipsIndexes + i};
    DataPage data(0);
    for (const QList<quint32>& pages : std::as_const(maps))
        data.add(inlineMap(pages));
    data.add(userMapUsed);
    data.add(userMapFree);
    return data.bytes();
}

QList<QByteArray> SystemCatalog::pages(const QByteArray& userMapUsed,
                                       const QByteArray& userMapFree) const
{
    QList<QByteArray> byName;
    QList<QByteArray> byId;
    QList<QByteArray> byObject;
    const QByteArray objectsData = objectsDataPage(byName, byId);
    const QByteArray acesData = acesDataPage(byObject);

    Table objects = objectsTable();
    objects.rowCount = quint32(m_objects.size());
    Table aces = acesTable();
    aces.rowCount = quint32(m_aces.size());
    QList<QByteArray> result;
    result.append(tableDefinitionPage(objects));
    result.append(tableDefinitionPage(aces));
    result.append(tableDefinitionPage(queriesTable()));
    result.append(tableDefinitionPage(relationshipsTable()));
    result.append(usageMapPage(userMapUsed, userMapFree));
    result.append(indexLeafPage(page::kObjects, byName));
    result.append(indexLeafPage(page::kObjects, byId));
    result.append(indexLeafPage(page::kAces, byObject));
    result.append(indexLeafPage(page::kQueries, {}));
    for (int i = 0; i < 3; ++i)
        result.append(indexLeafPage(page::kRelationships, {}));
    result.append(objectsData);
    result.append(acesData);
    return result;
}

} // namespace nubo::database::jet
