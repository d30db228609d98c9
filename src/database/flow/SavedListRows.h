// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/CatalogueFiles.h"

#include <QList>
#include <QObject>

namespace nubo::catalogue {
class CatalogueList;
}

namespace nubo::database {

// The rows of the catalogue list as they stood when a save started, top first, read from the
// list as the save reaches them so a million rows are not held twice. The save keeps the
// catalogue busy, which refuses every command that removes or reorders rows; should the list
// still be emptied, cut or sorted under the save, the rows not yet written are copied just
// before, so the file gets the rows as the save found them. Rows added at the top meanwhile are
// not the save's.
class SavedListRows final : public QObject
{
    Q_OBJECT
public:
    explicit SavedListRows(const catalogue::CatalogueList& list);

    // Valid while this object lives.
    CatalogueRowSource source() const;
    CatalogueRecord row(qsizetype index) const;

private:
    void keepCopy();

    const catalogue::CatalogueList& m_list;
    qsizetype m_count = 0;
    QList<CatalogueRecord> m_copy;
    bool m_copied = false;
};

} // namespace nubo::database
