// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/JetRow.h"
#include "database/JetSchema.h"

namespace nubo::database::jet {

// Pages of a new database, as the engine lays them out, then the catalogue's own two tables.
namespace page {
inline constexpr quint32 kHeader = 0;
inline constexpr quint32 kAllocation = 1;
inline constexpr quint32 kObjects = 2;
inline constexpr quint32 kAces = 3;
inline constexpr quint32 kQueries = 4;
inline constexpr quint32 kRelationships = 5;
inline constexpr quint32 kUsageMaps = 6;
inline constexpr quint32 kObjectsByName = 7;
inline constexpr quint32 kObjectsById = 8;
inline constexpr quint32 kAcesByObject = 9;
inline constexpr quint32 kQueriesIndex = 10;
inline constexpr quint32 kRelationshipsIndexes = 11; // three leaves: 11 to 13
inline constexpr quint32 kObjectsData = 14;
inline constexpr quint32 kAcesData = 15;
inline constexpr quint32 kUserTable = 16;
inline constexpr quint32 kDiscsTable = 17;
inline constexpr quint32 kFirstUserData = 18;
} // namespace page

// The rows of the usage-map page (page::kUsageMaps), each one usage map (layout: mdbtools'
// HACKING.md, "Page Usage Maps"). A table has two, the pages it owns ("used") and those with
// room left ("free"); so has each long-value column (used, then free at the next row); each
// index has one. The table definitions point at these rows and the page writes them in this
// order, so the numbers must stay in step with both.
namespace maprow {
inline constexpr quint8 kObjectsUsed = 0; // MSysObjects
inline constexpr quint8 kObjectsFree = 1;
inline constexpr quint8 kObjectsDatabase = 2; // its long-value columns, two rows each
inline constexpr quint8 kObjectsConnect = 4;
inline constexpr quint8 kObjectsRmtInfoLong = 6;
inline constexpr quint8 kObjectsLv = 8;
inline constexpr quint8 kObjectsLvProp = 10;
inline constexpr quint8 kObjectsLvModule = 12;
inline constexpr quint8 kObjectsLvExtra = 14;
inline constexpr quint8 kObjectsByName = 16; // index ParentIdName
inline constexpr quint8 kObjectsById = 17;   // index Id
inline constexpr quint8 kAcesUsed = 18;      // MSysACEs
inline constexpr quint8 kAcesFree = 19;
inline constexpr quint8 kAcesByObject = 20; // index ObjectId
inline constexpr quint8 kQueriesUsed = 21;  // MSysQueries
inline constexpr quint8 kQueriesFree = 22;
inline constexpr quint8 kQueriesExpression = 23; // long values, two rows
inline constexpr quint8 kQueriesIndex = 25;      // index ObjectIdAttribute
inline constexpr quint8 kRelationshipsUsed = 26; // MSysRelationships
inline constexpr quint8 kRelationshipsFree = 27;
inline constexpr quint8 kRelationshipsIndexes = 28; // szRelationship, szObject, szReferencedObject
inline constexpr quint8 kUserTableUsed = 31;        // the catalogue's table
inline constexpr quint8 kUserTableFree = 32;
inline constexpr quint8 kDiscsTableUsed = 33; // the table of discs
inline constexpr quint8 kDiscsTableFree = 34;
} // namespace maprow

// A user table as the catalogue lists it: its name and its definition page (also its id).
struct UserTable
{
    QString name;
    quint32 definitionPage = 0;
};

// The four system tables of a new database and what they hold, with the user tables added.
class SystemCatalog final
{
public:
    SystemCatalog(const QList<UserTable>& userTables, double created);

    // Pages kObjects to kAcesData, in order: the system tables' definitions, the usage maps,
    // their index leaves and their data. The header, the allocation map and the user tables'
    // pages are the writer's. userMaps holds each user table's used and free map rows, in the
    // order of the tables, to go at maprow::kUserTableUsed on.
    QList<QByteArray> pages(const QList<QByteArray>& userMaps) const;

private:
    struct Object
    {
        qint32 id;
        qint32 parentId;
        QString name;
        qint16 type;
        QByteArray owner;
        qint32 flags;
    };
    struct Ace
    {
        qint32 objectId;
        QByteArray sid;
        qint32 accessMask;
        bool inheritable;
    };

    QByteArray objectsDataPage(QList<QByteArray>& byName, QList<QByteArray>& byId) const;
    QByteArray acesDataPage(QList<QByteArray>& byObject) const;
    QByteArray usageMapPage(const QList<QByteArray>& userMaps) const;

    QList<Object> m_objects;
    QList<Ace> m_aces;
    double m_created;
};

Table objectsTable();
Table acesTable();
Table queriesTable();
Table relationshipsTable();

} // namespace nubo::database::jet
