// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueRow.h"
#include "catalogue/DiscTotals.h"

#include <QMap>
#include <QPair>
#include <QString>

namespace nubo::library {

// The files, bytes and length of the library's rows: per disc (a group of one catalogue), per
// group across catalogues, per format and overall. Unknown sizes and lengths add nothing.
class LibraryTotals final
{
public:
    using DiscKey = QPair<QString, QString>; // catalogue, ORIGEN

    void add(const QString& catalogue, const catalogue::CatalogueRow& row);

    const catalogue::GroupTotals& overall() const { return m_overall; }
    const QMap<DiscKey, catalogue::GroupTotals>& discs() const { return m_discs; }
    const QMap<QString, catalogue::GroupTotals>& groups() const { return m_groups; }
    const QMap<QString, catalogue::GroupTotals>& formats() const { return m_formats; }

private:
    catalogue::GroupTotals m_overall;
    QMap<DiscKey, catalogue::GroupTotals> m_discs;
    QMap<QString, catalogue::GroupTotals> m_groups;
    QMap<QString, catalogue::GroupTotals> m_formats;
};

} // namespace nubo::library
