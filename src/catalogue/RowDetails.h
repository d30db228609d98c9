// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::catalogue {

class CatalogueList;
class EntryPathResolver;

// What the list window shows for a row: the list's tooltip and the tag details box.
struct RowDetailsView
{
    QString toolTip;
    bool boxVisible = false;
    QString boxText;
};

// The details of a selected row: its file-type name and, for MPEG audio, its ID3v1 tag.
class RowDetails final
{
public:
    explicit RowDetails(const EntryPathResolver& resolver) : m_resolver(resolver) {}

    // The view after showing the row at position, given the box's current text (a tag with
    // a blank title appends to that text).
    RowDetailsView ShowRowDetails(const CatalogueList& list, int position,
                                  const QString& currentBoxText) const;
    // The full path of the row at position, or an empty text when it cannot be found.
    QString entryPath(const CatalogueList& list, int position) const;

private:
    const EntryPathResolver& m_resolver;
};

} // namespace nubo::catalogue
