// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryDuplicates.h"

#include "catalogue/FindWords.h"

#include <QSet>

#include <algorithm>

namespace nubo::library {
namespace {

const QChar kSeparator(0x1f);

QString foldedText(const QString& text)
{
    const std::string folded = catalogue::FindWords::folded(text);
    return QString::fromUtf8(folded.data(), qsizetype(folded.size()));
}

} // namespace

void LibraryDuplicates::add(const QString& catalogue, const catalogue::CatalogueRow& row)
{
    const qsizetype index = m_rows.size();
    m_rows.append({catalogue, row});
    const core::FileDetails& d = row.details;
    const QString name = row.nombre + kSeparator + row.formato;
    if (d.size >= 0)
        m_bySize[name + kSeparator + QString::number(d.size)].append(index);
    m_byName[name].append(index);
    if (!d.artist.isEmpty() && !d.title.isEmpty() && d.duration >= 0)
        m_byTags[foldedText(d.artist) + kSeparator + foldedText(d.title)].append(index);
}

bool LibraryDuplicates::onSeveralDiscs(const QList<qsizetype>& copies) const
{
    QSet<QString> discs;
    for (const qsizetype i : copies)
        discs.insert(m_rows.at(i).catalogue + kSeparator + m_rows.at(i).row.origen);
    return discs.size() > 1;
}

void LibraryDuplicates::addSets(const QHash<QString, QList<qsizetype>>& groups, DuplicateRule rule,
                                QList<DuplicateSet>& sets, QList<int>* setOf) const
{
    for (const QList<qsizetype>& copies : groups) {
        if (copies.size() < 2 || !onSeveralDiscs(copies))
            continue;
        DuplicateSet set{rule, {}};
        for (const qsizetype i : copies) {
            set.copies.append(m_rows.at(i));
            if (setOf)
                (*setOf)[i] = int(sets.size());
        }
        sets.append(set);
    }
}

void LibraryDuplicates::addTagSets(QList<DuplicateSet>& sets, const QList<int>& sizeSetOf) const
{
    QHash<QString, QList<qsizetype>> clusters;
    for (auto it = m_byTags.cbegin(); it != m_byTags.cend(); ++it) {
        QList<qsizetype> byLength = it.value();
        std::sort(byLength.begin(), byLength.end(), [this](qsizetype a, qsizetype b) {
            return m_rows.at(a).row.details.duration < m_rows.at(b).row.details.duration;
        });
        int cluster = 0;
        for (qsizetype n = 0; n < byLength.size(); ++n) {
            if (n > 0 && m_rows.at(byLength.at(n)).row.details.duration -
                                 m_rows.at(byLength.at(n - 1)).row.details.duration >
                             kLengthTolerance)
                ++cluster;
            clusters[it.key() + kSeparator + QString::number(cluster)].append(byLength.at(n));
        }
    }
    // A cluster whose copies were all found by size already adds nothing.
    for (auto it = clusters.begin(); it != clusters.end();) {
        const int first = sizeSetOf.at(it.value().first());
        const bool known =
            first >= 0 && std::all_of(it.value().cbegin(), it.value().cend(),
                                      [&](qsizetype i) { return sizeSetOf.at(i) == first; });
        it = known ? clusters.erase(it) : std::next(it);
    }
    addSets(clusters, DuplicateRule::Tags, sets, nullptr);
}

QList<DuplicateSet> LibraryDuplicates::sets() const
{
    QList<DuplicateSet> sets;
    QList<int> sizeSetOf(m_rows.size(), -1);
    addSets(m_bySize, DuplicateRule::NameAndSize, sets, &sizeSetOf);
    addTagSets(sets, sizeSetOf);
    // By name only where some copy has no size to compare.
    QHash<QString, QList<qsizetype>> unsized;
    for (auto it = m_byName.cbegin(); it != m_byName.cend(); ++it) {
        if (std::any_of(it.value().cbegin(), it.value().cend(),
                        [this](qsizetype i) { return m_rows.at(i).row.details.size < 0; }))
            unsized.insert(it.key(), it.value());
    }
    addSets(unsized, DuplicateRule::NameOnly, sets, nullptr);
    // Stable for readers and tests: by the first copy's name, then catalogue.
    for (DuplicateSet& set : sets)
        std::sort(set.copies.begin(), set.copies.end(),
                  [](const DuplicateCopy& a, const DuplicateCopy& b) {
                      return std::tie(a.catalogue, a.row.origen, a.row.direccion, a.row.nombre) <
                             std::tie(b.catalogue, b.row.origen, b.row.direccion, b.row.nombre);
                  });
    std::sort(sets.begin(), sets.end(), [](const DuplicateSet& a, const DuplicateSet& b) {
        return std::tie(a.copies.first().row.nombre, a.rule, a.copies.first().catalogue) <
               std::tie(b.copies.first().row.nombre, b.rule, b.copies.first().catalogue);
    });
    return sets;
}

QString LibraryDuplicates::ruleText(DuplicateRule rule)
{
    switch (rule) {
    case DuplicateRule::NameAndSize:
        return QStringLiteral("mismo nombre y tamaño");
    case DuplicateRule::Tags:
        return QStringLiteral("mismas etiquetas");
    case DuplicateRule::NameOnly:
        return QStringLiteral("solo por nombre");
    }
    return {};
}

} // namespace nubo::library
