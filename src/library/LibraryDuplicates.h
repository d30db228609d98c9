// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueRow.h"

#include <QHash>
#include <QList>
#include <QString>

namespace nubo::library {

// How the copies of a duplicate were found to be the same file.
enum class DuplicateRule {
    NameAndSize, // NOMBRE, FORMATO and TAMAÑO
    Tags,        // ARTISTA and TITULO, case and accents aside, DURACION within 2 s
    NameOnly,    // NOMBRE and FORMATO of rows without sizes
};

struct DuplicateCopy
{
    QString catalogue;
    catalogue::CatalogueRow row;
};

// The copies of one file, on two discs or more (a disc is a group of one catalogue).
struct DuplicateSet
{
    DuplicateRule rule = DuplicateRule::NameAndSize;
    QList<DuplicateCopy> copies;
};

// The same file kept on more than one disc. Rows with a size are compared by name, format and
// size; rows with artist, title and length also by those, a copy already found by size not
// repeated; rows without a size by name and format alone, against any row.
class LibraryDuplicates final
{
public:
    static constexpr int kLengthTolerance = 2; // seconds

    void add(const QString& catalogue, const catalogue::CatalogueRow& row);
    QList<DuplicateSet> sets() const;
    // "mismo nombre y tamaño", "mismas etiquetas", "solo por nombre".
    static QString ruleText(DuplicateRule rule);

private:
    void addSets(const QHash<QString, QList<qsizetype>>& groups, DuplicateRule rule,
                 QList<DuplicateSet>& sets, QList<int>* setOf) const;
    void addTagSets(QList<DuplicateSet>& sets, const QList<int>& sizeSetOf) const;
    bool onSeveralDiscs(const QList<qsizetype>& copies) const;

    QList<DuplicateCopy> m_rows;
    QHash<QString, QList<qsizetype>> m_bySize;
    QHash<QString, QList<qsizetype>> m_byTags;
    QHash<QString, QList<qsizetype>> m_byName;
};

} // namespace nubo::library
