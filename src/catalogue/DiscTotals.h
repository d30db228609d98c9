// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace nubo::catalogue {

class CatalogueList;

// What the rows of one group (or of the whole list) add up to. Unknown sizes and lengths add
// nothing.
struct GroupTotals
{
    qint64 files = 0;
    qint64 bytes = 0;
    qint64 seconds = 0;

    void add(const GroupTotals& other);
    bool operator==(const GroupTotals&) const = default;
};

// The files, bytes and length of each group of the list, counted in one pass over the rows.
class DiscTotals final
{
public:
    static DiscTotals of(const CatalogueList& list);

    // The groups that have rows, oldest row's group first.
    const QStringList& groups() const { return m_groups; }
    // A group without rows has all zero.
    GroupTotals group(const QString& origen) const;
    const GroupTotals& overall() const { return m_overall; }
    // The group's rows were renamed.
    void renameGroup(const QString& from, const QString& to);

    // A length as hours, minutes and seconds ("0:04:05", "27:00:00"), however short.
    static QString durationText(qint64 seconds);

private:
    QStringList m_groups;
    std::vector<GroupTotals> m_sums; // by the group's index in m_groups
    QHash<QString, int> m_index;
    GroupTotals m_overall;
};

} // namespace nubo::catalogue
