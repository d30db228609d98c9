// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueList.h"
#include "catalogue/ListFilter.h"

#include <QAbstractItemModelTester>
#include <QItemSelectionModel>
#include <QSignalSpy>
#include <QTest>

using namespace nubo::catalogue;

namespace {

CatalogueRow row(const QString& name, const QString& folder = QStringLiteral("/m/"),
                 const QString& group = QStringLiteral("G"))
{
    return {name, folder, group, QStringLiteral("MP3"), QStringLiteral("/d")};
}

// The names the filter shows, top to bottom.
QStringList shown(const ListFilter& filter)
{
    QStringList out;
    for (int r = 0; r < filter.rowCount(); ++r)
        out.append(filter.index(r, 0).data().toString());
    return out;
}

QList<CatalogueRow> rowsOf(const CatalogueList& list)
{
    QList<CatalogueRow> out;
    for (int p = 0; p < list.count(); ++p)
        out.append(list.row(p));
    return out;
}

// Top to bottom: each name is a row, all in one folder and group unless given.
void fill(CatalogueList& list, const QList<CatalogueRow>& topFirst)
{
    for (const CatalogueRow& r : topFirst)
        list.appendAtBottom(r);
    list.flush();
}

} // namespace

class TestListFilter final : public QObject
{
    Q_OBJECT
private slots:
    void matching_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("case") << "ÁLVARO" << QStringList{"Álvaro Vivo"};
        QTest::newRow("accent left out") << "alvaro" << QStringList{"Álvaro Vivo"};
        QTest::newRow("accent typed") << "pístá" << QStringList{"Pista 1"};
        QTest::newRow("decomposed accent") << "cancio\u0301n" << QStringList{"Canción triste"};
        QTest::newRow("several words, any order") << "triste canc" << QStringList{"Canción triste"};
        QTest::newRow("every word must appear") << "cancion alegre" << QStringList{};
        QTest::newRow("folder") << "/rock/" << QStringList{"Pista 1"};
        QTest::newRow("group only") << "verano" << QStringList{"Pista 1", "Otra"};
        QTest::newRow("not across fields") << "otra/m" << QStringList{};
        QTest::newRow("format is not searched") << "mp3" << QStringList{};
        QTest::newRow("blanks show every row")
            << " \t " << QStringList{"Álvaro Vivo", "Canción triste", "Pista 1", "Otra"};
        QTest::newRow("long text") << QString(10000, QLatin1Char('x')) << QStringList{};
        QTest::newRow("many words") << QStringLiteral("a ").repeated(5000) + QStringLiteral("vivo")
                                    << QStringList{"Álvaro Vivo"};
    }
    void matching()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, expected);
        CatalogueList list;
        fill(list, {row("Álvaro Vivo"), row("Canción triste"), row("Pista 1", "/ROCK/", "Verano"),
                    row("Otra", "/m/", "CD VERANO")});
        ListFilter filter(list);
        QAbstractItemModelTester tester(&filter);
        filter.setFindText(text);
        QCOMPARE(shown(filter), expected);
        QCOMPARE(filter.totalCount(), 4);
    }

    // Typing on narrows among the shown rows; the result is what a fresh filter shows.
    void typingAndErasingAgreeWithAFreshFilter()
    {
        CatalogueList list;
        fill(list, {row("abc"), row("abd"), row("xab"), row("b a"), row("zzz")});
        ListFilter filter(list);
        QAbstractItemModelTester tester(&filter);
        for (const char* text : {"a", "ab", "abd", "ab", "a b", "a b z", "", "b a"}) {
            filter.setFindText(text);
            ListFilter fresh(list);
            fresh.setFindText(text);
            QCOMPARE(shown(filter), shown(fresh));
        }
        QCOMPARE(shown(filter), QStringList({"abc", "abd", "xab", "b a"}));
    }

    // Rows added, removed, renamed and sorted while a find is shown: the list keeps every row,
    // the filter shows the matching ones in the list's order.
    void followsTheListWhileFiltering()
    {
        CatalogueList list;
        fill(list, {row("rock 2"), row("pop"), row("rock 1")});
        ListFilter filter(list);
        QAbstractItemModelTester tester(&filter);
        filter.setFindText(QStringLiteral("rock"));
        list.insertAtTop(row("Rock 0"));
        list.insertAtTop(row("jazz"));
        list.appendAtBottom(row("ROCK 3"));
        list.flush();
        QCOMPARE(shown(filter), QStringList({"Rock 0", "rock 2", "rock 1", "ROCK 3"}));
        list.sortByColumn(Column::Nombre, Qt::AscendingOrder);
        QCOMPARE(shown(filter), QStringList({"Rock 0", "rock 1", "rock 2", "ROCK 3"}));
        QVERIFY(filter.setData(filter.index(0, 0), QStringLiteral("renamed")));
        QCOMPARE(shown(filter).first(), QStringLiteral("renamed")); // stays in sight
        list.removeAt(list.count() - 1);
        QCOMPARE(filter.positionOf(filter.index(1, 0)), 3); // "rock 1", hidden rows counted
        QCOMPARE(filter.indexAt(3).data().toString(), QStringLiteral("rock 1"));
        QVERIFY(!filter.indexAt(0).isValid()); // "jazz" is hidden
        filter.setFindText({});
        QCOMPARE(shown(filter), QStringList({"jazz", "pop", "renamed", "rock 1", "rock 2"}));
        list.clear();
        QCOMPARE(filter.rowCount(), 0);
    }

    // Filtering neither loses nor reorders rows; hidden rows leave the view's selection, so
    // deleting the selected rows removes only rows in sight.
    void deletingWhileFilteredRemovesOnlyShownRows()
    {
        CatalogueList list;
        fill(list, {row("uno"), row("dos"), row("tres"), row("cuatro")});
        const QList<CatalogueRow> before = rowsOf(list);
        ListFilter filter(list);
        QSignalSpy counts(&filter, &ListFilter::countsChanged);
        QItemSelectionModel selection(&filter);
        selection.select(QItemSelection(filter.index(0, 0), filter.index(3, 4)),
                         QItemSelectionModel::Select | QItemSelectionModel::Rows);
        filter.setFindText(QStringLiteral("o"));
        QCOMPARE(counts.last(), QVariantList({3, 4}));
        filter.setFindText(QStringLiteral("os"));
        QCOMPARE(shown(filter), QStringList({"dos"}));
        filter.setFindText({});
        QCOMPARE(rowsOf(list), before);
        filter.setFindText(QStringLiteral("os"));
        QCOMPARE(list.removePositions(filter.positionsOf(selection.selectedRows())), 1);
        filter.setFindText({});
        QCOMPARE(shown(filter), QStringList({"uno", "tres", "cuatro"}));
        QVERIFY(!selection.hasSelection()); // hidden once, never selected again
    }
};

QTEST_GUILESS_MAIN(TestListFilter)
#include "tst_ListFilter.moc"
