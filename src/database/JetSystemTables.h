// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/JetRow.h"
#include "database/JetSchema.h"

namespace nubo::database::jet {

// Pages of a new database, as the engine lays them out, then the catalogue's own table.
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
inline constexpr quint32 kFirstUserData = 17;
} // namespace page

// Usage map rows of the system tables on the usage map page; the user table's follow them.
inline constexpr quint8 kUserTableUsedMap = 31;
inline constexpr quint8 kUserTableFreeMap = 32;

// The four system tables of a new database and what they hold, with one user table added.
class SystemCatalog final
{
public:
    SystemCatalog(const QString& userTable, double created);

    // Pages kObjects to kAcesData, in order: the system tables' definitions, the usage maps,
    // their index leaves and their data. The header, the allocation map and the user table's
    // pages are the writer's.
    QList<QByteArray> pages(const QByteArray& userMapUsed, const QByteArray& userMapFree) const;

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
    QByteArray usageMapPage(const QByteArray& userMapUsed, const QByteArray& userMapFree) const;

    QList<Object> m_objects;
    QList<Ace> m_aces;
    double m_created;
};

Table objectsTable();
Table acesTable();
Table queriesTable();
Table relationshipsTable();

} // namespace nubo::database::jet
