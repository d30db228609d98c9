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
constexpr quint8 kEngineFixed = kFixedColumn | kUpdatableColumn | kEngineColumn;
constexpr quint8 kEngineVariable = kUpdatableColumn | kEngineColumn;
constexpr quint8 kEngineSidColumn = kEngineVariable | kSidColumn; // 0x32

// Access masks of the rows of MSysACEs (its ACM column): sums of the permission bits DAO
// documents for its Permissions property (PermissionEnum): on a table or container
// dbSecCreate 0x1, dbSecReadDef 0x4, dbSecWriteDef 0x1000C, dbSecRetrieveData 0x14,
// dbSecInsertData 0x20, dbSecReplaceData 0x40, dbSecDeleteData 0x80, dbSecDelete 0x10000,
// dbSecReadSec 0x20000, dbSecWriteSec 0x40000, dbSecWriteOwner 0x80000, dbSecFullAccess
// 0xFFFFF; on the database dbSecDBOpen 0x2, dbSecDBExclusive 0x4, dbSecDBAdmin 0x8. The values
// are those the engine gives a new database.
namespace acm {
constexpr qint32 kSecurity = 0x60000;           // 393216: read and change permissions
constexpr qint32 kSecurityCreate = 0x60001;     // 393217: the same, and create in the container
constexpr qint32 kSecurityOwner = 0xE0000;      // 917504: the same, and change the owner
constexpr qint32 kDatabaseOwner = 0x6000E;      // 393230: permissions, open, exclusive, admin
constexpr qint32 kDatabaseAdmins = 0xE;         // 14: open, exclusive, admin
constexpr qint32 kReadData = 0x14;              // 20: read the data (and the design)
constexpr qint32 kTablesCreatorOwner = 0xF00FE; // 983294: every table right DAO names but create
constexpr qint32 kTablesAdmins = 0xFFEFF;       // 1048319: full access less bit 0x100
constexpr qint32 kFullAccess = 0xFFFFF;         // 1048575
} // namespace acm

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

// A long-value column's two maps: used at usedRow, free at the next row.
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
                 column("Owner", kBinary, 6, kEngineSidColumn),
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
    constexpr quint8 unique = kUniqueIndex | kJet4Index;
    t.indexes = {
        index("Id", 1, {0}, unique, page::kObjectsById, maprow::kObjectsById, true),
        index("ParentIdName", 0, {1, 2}, unique, page::kObjectsByName, maprow::kObjectsByName)};
    // By column number: Connect, Database, Lv, LvExtra, LvModule, LvProp, RmtInfoLong.
    t.longValueMaps = {lvMaps(9, maprow::kObjectsConnect),     lvMaps(8, maprow::kObjectsDatabase),
                       lvMaps(13, maprow::kObjectsLv),         lvMaps(16, maprow::kObjectsLvExtra),
                       lvMaps(15, maprow::kObjectsLvModule),   lvMaps(14, maprow::kObjectsLvProp),
                       lvMaps(12, maprow::kObjectsRmtInfoLong)};
    t.usedPages = mapRow(maprow::kObjectsUsed);
    t.freePages = mapRow(maprow::kObjectsFree);
    return t;
}

Table acesTable()
{
    Table t;
    t.name = QStringLiteral("MSysACEs");
    t.system = true;
    t.columns = {column("ObjectId", kLong, 0), column("SID", kBinary, 1, kEngineSidColumn),
                 column("ACM", kLong, 2), column("FInheritable", kBoolean, 3)};
    sortByName(t);
    t.indexes = {index("ObjectId", 0, {0}, kRequiredIndex | kJet4Index, page::kAcesByObject,
                       maprow::kAcesByObject)};
    t.usedPages = mapRow(maprow::kAcesUsed);
    t.freePages = mapRow(maprow::kAcesFree);
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
    t.indexes = {index("ObjectIdAttribute", 0, {0, 1, 2}, kUniqueIndex | kJet4Index,
                       page::kQueriesIndex, maprow::kQueriesIndex, true)};
    t.longValueMaps = {lvMaps(5, maprow::kQueriesExpression)};
    t.usedPages = mapRow(maprow::kQueriesUsed);
    t.freePages = mapRow(maprow::kQueriesFree);
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
    constexpr quint8 row = maprow::kRelationshipsIndexes;
    constexpr quint8 flags = kIgnoreNullsIndex | kJet4Index;
    t.indexes = {index("szObject", 1, {4}, flags, first + 1, row + 1),
                 index("szReferencedObject", 2, {6}, flags, first + 2, row + 2),
                 index("szRelationship", 0, {0}, flags, first, row)};
    t.usedPages = mapRow(maprow::kRelationshipsUsed);
    t.freePages = mapRow(maprow::kRelationshipsFree);
    return t;
}

SystemCatalog::SystemCatalog(const QList<UserTable>& userTables, double created)
    : m_created(created)
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
    };
    for (const UserTable& table : userTables)
        m_objects.append({qint32(table.definitionPage), kTablesContainer, table.name, kTableObject,
                          kCreatorSid, 0});
    const qint32 objects = qint32(page::kObjects), aces = qint32(page::kAces);
    const qint32 queries = qint32(page::kQueries), relationships = qint32(page::kRelationships);
    m_aces = {
        {objects, kCreatorSid, acm::kSecurity, false},
        {aces, kCreatorSid, acm::kSecurity, false},
        {queries, kCreatorSid, acm::kSecurity, false},
        {relationships, kCreatorSid, acm::kSecurityOwner, false},
        {kTablesContainer, kCreatorOwnerSid, acm::kTablesCreatorOwner, true},
        {kTablesContainer, kCreatorSid, acm::kSecurityCreate, false},
        {kRelationshipsContainer, kCreatorOwnerSid, acm::kTablesCreatorOwner, true},
        {kRelationshipsContainer, kCreatorSid, acm::kSecurityCreate, false},
        {kDatabasesContainer, kCreatorSid, acm::kSecurity, false},
        {kDatabaseObject, kCreatorSid, acm::kDatabaseOwner, false},
        {kDatabaseObject, kAdminsSid, acm::kDatabaseAdmins, false},
        {queries, kAdminsSid, acm::kReadData, false},
        {relationships, kAdminsSid, acm::kReadData, false},
        {objects, kAdminsSid, acm::kReadData, false},
        {kTablesContainer, kAdminsSid, acm::kTablesAdmins, true},
        {kRelationshipsContainer, kAdminsSid, acm::kFullAccess, true},
    };
    // A new table inherits the tables container's inheritable entries; the creator-owner
    // entry becomes the creator's own.
    const QList<Ace> existing = m_aces;
    for (const UserTable& table : userTables) {
        for (const Ace& ace : existing) {
            if (ace.objectId == kTablesContainer && ace.inheritable) {
                const QByteArray sid = ace.sid == kCreatorOwnerSid ? kCreatorSid : ace.sid;
                m_aces.append({qint32(table.definitionPage), sid, ace.accessMask, false});
            }
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

QByteArray SystemCatalog::usageMapPage(const QList<QByteArray>& userMaps) const
{
    // Rows not set here map no page: empty tables and long-value columns.
    QList<QList<quint32>> maps(maprow::kUserTableUsed);
    maps[maprow::kObjectsUsed] = maps[maprow::kObjectsFree] = {page::kObjectsData};
    maps[maprow::kObjectsByName] = {page::kObjectsByName};
    maps[maprow::kObjectsById] = {page::kObjectsById};
    maps[maprow::kAcesUsed] = maps[maprow::kAcesFree] = {page::kAcesData};
    maps[maprow::kAcesByObject] = {page::kAcesByObject};
    maps[maprow::kQueriesIndex] = {page::kQueriesIndex};
    for (quint32 i = 0; i < 3; ++i)
        maps[maprow::kRelationshipsIndexes + i] = {page::kRelationshipsIndexes + i};
    DataPage data(0);
    for (const QList<quint32>& pages : std::as_const(maps))
        data.add(inlineMap(pages));
    for (const QByteArray& map : userMaps)
        data.add(map);
    return data.bytes();
}

QList<QByteArray> SystemCatalog::pages(const QList<QByteArray>& userMaps) const
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
    result.append(usageMapPage(userMaps));
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
