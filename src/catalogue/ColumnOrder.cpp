// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ColumnOrder.h"

#include <QCollator>
#include <QHash>
#include <QLocale>

#include <algorithm>
#include <numeric>
#include <thread>

namespace nubo::catalogue {

namespace {

// Below this many texts a second thread costs more than it saves.
constexpr std::size_t kParallelFrom = 20000;

bool twoThreads(std::size_t count)
{
    return count >= kParallelFrom && std::thread::hardware_concurrency() > 1;
}

// The user's language decides the order; under the bare C locale, which knows no accents, the
// interface's Spanish decides.
QCollator makeCollator()
{
    QLocale language;
    if (language.language() == QLocale::C)
        language = QLocale(QLocale::Spanish, QLocale::Spain);
    QCollator collator(language);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    return collator;
}

// Each thread has a collator of its own: one collator is not to be shared between threads.
void collate(const std::vector<const QString*>& texts, std::size_t from, std::size_t to,
             std::vector<QCollatorSortKey>& keys)
{
    const QCollator collator = makeCollator();
    // Collations without a case-blind mode (Qt built without ICU) are given folded texts.
    const bool fold = collator.compare(QStringLiteral("a"), QStringLiteral("A")) != 0;
    keys.reserve(to - from);
    for (std::size_t i = from; i < to; ++i)
        keys.push_back(collator.sortKey(fold ? texts[i]->toCaseFolded() : *texts[i]));
}

std::vector<QCollatorSortKey> collateAll(const std::vector<const QString*>& texts)
{
    std::vector<QCollatorSortKey> keys;
    if (!twoThreads(texts.size())) {
        collate(texts, 0, texts.size(), keys);
        return keys;
    }
    const std::size_t half = texts.size() / 2;
    std::vector<QCollatorSortKey> upper;
    std::thread helper([&] { collate(texts, half, texts.size(), upper); });
    collate(texts, 0, half, keys);
    helper.join();
    keys.insert(keys.end(), std::make_move_iterator(upper.begin()),
                std::make_move_iterator(upper.end()));
    return keys;
}

// A stable sort whose two halves are sorted at once; merging keeps equal items in order.
template <class Less> void stableSort(std::vector<int>& items, Less less)
{
    if (!twoThreads(items.size())) {
        std::stable_sort(items.begin(), items.end(), less);
        return;
    }
    const auto middle = items.begin() + std::ptrdiff_t(items.size() / 2);
    std::thread helper([&] { std::stable_sort(middle, items.end(), less); });
    std::stable_sort(items.begin(), middle, less);
    helper.join();
    std::inplace_merge(items.begin(), middle, items.end(), less);
}

// Repeated texts (folders, groups, formats) are collated once each and rows sort by rank.
std::vector<int> ranksOfRepeatedTexts(const std::vector<const QString*>& texts)
{
    QHash<QString, int> distinct;
    std::vector<const QString*> uniqueTexts;
    std::vector<int> textOf(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        auto it = distinct.constFind(*texts[i]);
        if (it == distinct.constEnd()) {
            it = distinct.insert(*texts[i], int(uniqueTexts.size()));
            uniqueTexts.push_back(texts[i]);
        }
        textOf[i] = *it;
    }
    const std::vector<QCollatorSortKey> keys = collateAll(uniqueTexts);
    std::vector<int> byKey(keys.size());
    std::iota(byKey.begin(), byKey.end(), 0);
    const auto keyLess = [&](int a, int b) {
        return keys[std::size_t(a)].compare(keys[std::size_t(b)]) < 0;
    };
    std::sort(byKey.begin(), byKey.end(), keyLess);
    std::vector<int> rankOfText(keys.size());
    for (std::size_t i = 0, rank = 0; i < byKey.size(); ++i) {
        if (i > 0 && keyLess(byKey[i - 1], byKey[i]))
            ++rank;
        rankOfText[std::size_t(byKey[i])] = int(rank);
    }
    std::vector<int> rankOf(texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i)
        rankOf[i] = rankOfText[std::size_t(textOf[i])];
    return rankOf;
}

} // namespace

std::vector<int> ColumnOrder::sorted(const std::vector<const QString*>& texts, bool textsRepeat,
                                     Qt::SortOrder order)
{
    std::vector<int> rows(texts.size());
    std::iota(rows.begin(), rows.end(), 0);
    const bool ascending = order == Qt::AscendingOrder;
    if (textsRepeat) {
        const std::vector<int> rank = ranksOfRepeatedTexts(texts);
        stableSort(rows, [&](int a, int b) {
            const int ra = rank[std::size_t(a)], rb = rank[std::size_t(b)];
            return ascending ? ra < rb : ra > rb;
        });
        return rows;
    }
    const std::vector<QCollatorSortKey> keys = collateAll(texts);
    stableSort(rows, [&](int a, int b) {
        const int c = keys[std::size_t(a)].compare(keys[std::size_t(b)]);
        return ascending ? c < 0 : c > 0;
    });
    return rows;
}

} // namespace nubo::catalogue
