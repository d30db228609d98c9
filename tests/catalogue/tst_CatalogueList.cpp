// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueList.h"

#include <QAbstractItemModelTester>
#include <QCollator>
#include <QHash>
#include <QTest>

#include <array>

using namespace nubo::catalogue;

namespace {

CatalogueRow rowNamed(const QString& name, const QString& folder = QStringLiteral("/m/"))
{
    return {name, folder, QStringLiteral("G"), QStringLiteral("MP3"), QStringLiteral("/d")};
}

QStringList names(const CatalogueList& list)
{
    QStringList out;
    for (int p = 0; p < list.count(); ++p)
        out.append(list.row(p).nombre);
    return out;
}

QStringList shownNames(const CatalogueList& list)
{
    QStringList out;
    for (int r = 0; r < list.rowCount(); ++r)
        out.append(list.index(r, 0).data().toString());
    return out;
}

void fill(CatalogueList& list, const QStringList& oldestFirst)
{
    for (const QString& n : oldestFirst)
        list.insertAtTop(rowNamed(n));
    list.flush();
}

} // namespace

class TestCatalogueList final : public QObject
{
    Q_OBJECT
private slots:
    void newestRowsStandFirst()
    {
        CatalogueList list;
        QAbstractItemModelTester tester(&list);
        fill(list, {"a", "b", "a"});
        QCOMPARE(names(list), QStringList({"a", "b", "a"}));
        QCOMPARE(list.row(0), list.row(2)); // no identity: equal rows stay equal
        QCOMPARE(shownNames(list), names(list));
        QCOMPARE(list.index(0, 4).data().toString(), QStringLiteral("/d"));
    }

    // Loaded rows go below the others; both ends may be pending at once.
    void rowsAppendedAtTheBottom()
    {
        CatalogueList list;
        QAbstractItemModelTester tester(&list);
        fill(list, {"mid"});
        list.appendAtBottom(rowNamed(QStringLiteral("b1")));
        list.insertAtTop(rowNamed(QStringLiteral("top")));
        list.appendAtBottom(rowNamed(QStringLiteral("b2")));
        QCOMPARE(names(list), QStringList({"top", "mid", "b1", "b2"}));
        QCOMPARE(list.positionOf(list.index(0, 0)), 1);
        QCOMPARE(list.indexAt(1).data().toString(), QStringLiteral("mid"));
        list.flush();
        QCOMPARE(shownNames(list), names(list));
        list.appendAtBottom(rowNamed(QStringLiteral("b3")));
        list.sortByColumn(Column::Nombre, Qt::AscendingOrder); // flushes first
        QCOMPARE(shownNames(list), QStringList({"b1", "b2", "b3", "mid", "top"}));
    }

    void removesSelectedRuns_data()
    {
        QTest::addColumn<QList<int>>("selected");
        QTest::addColumn<int>("rows");
        QTest::newRow("adjacent") << QList<int>{2, 3, 4} << 10;
        QTest::newRow("all, out of order") << QList<int>{3, 1, 0, 2} << 4;
    }
    void removesSelectedRuns()
    {
        QFETCH(QList<int>, selected);
        QFETCH(int, rows);
        CatalogueList list;
        QAbstractItemModelTester tester(&list);
        QStringList all;
        for (int i = 0; i < rows; ++i)
            all.prepend(QString::number(i));
        fill(list, QStringList(all.rbegin(), all.rend()));
        for (int p : selected)
            all[p].clear();
        all.removeAll(QString());
        QCOMPARE(list.removePositions({selected.begin(), selected.end()}), selected.size());
        QCOMPARE(names(list), all);
        QCOMPARE(shownNames(list), all);
    }

    void sortIsStableAndKeepsIndexes()
    {
        CatalogueList list;
        QAbstractItemModelTester tester(&list);
        list.insertAtTop(rowNamed("b", "/1/"));
        list.insertAtTop(rowNamed("B", "/2/"));
        list.insertAtTop(rowNamed("a", "/3/"));
        list.insertAtTop(rowNamed("c", "/4/"));
        list.flush();
        const QPersistentModelIndex c = list.indexAt(0);
        list.sortByColumn(Column::Nombre, Qt::AscendingOrder);
        QCOMPARE(names(list), QStringList({"a", "B", "b", "c"}));
        QCOMPARE(list.row(1).direccion, QStringLiteral("/2/")); // equal texts keep their order
        QCOMPARE(c.row(), 3); // "c": a view's selection follows it
        QCOMPARE(shownNames(list), names(list));
    }

    // Numbers sort as numbers (9 before 10, one hour after 59:59), unknown values below every
    // known one, equal values in their old order in either direction; tag texts as names do.
    void sortsDetailColumns_data()
    {
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("order");
        QTest::addColumn<QString>("expected");
        const int up = Qt::AscendingOrder, down = Qt::DescendingOrder;
        QTest::newRow("TAMAÑO up") << int(Column::Tamano) << up << "becad";
        QTest::newRow("TAMAÑO down") << int(Column::Tamano) << down << "adcbe";
        QTest::newRow("DURACION up") << int(Column::Duracion) << up << "ebdac";
        QTest::newRow("DURACION down") << int(Column::Duracion) << down << "cadbe";
        QTest::newRow("FECHA up") << int(Column::Fecha) << up << "dbcea";
        QTest::newRow("AÑO down") << int(Column::Ano) << down << "badec";
        QTest::newRow("PISTA up") << int(Column::Pista) << up << "ceadb";
        QTest::newRow("ARTISTA up") << int(Column::Artista) << up << "bdcea";
        QTest::newRow("TITULO down") << int(Column::Titulo) << down << "cabde";
    }
    void sortsDetailColumns()
    {
        QFETCH(int, column);
        QFETCH(int, order);
        QFETCH(QString, expected);
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
        struct Values
        {
            qint64 size, date;
            qint32 duration;
            quint16 year, track;
            const char *artist, *title;
        };
        // a..e, top to bottom; -1, kNoDate and 0 are unknown.
        const std::array<Values, 5> values = {{
            {10, 300, 600, 1979, 3, "Quiroga", "uno"},
            {-1, 100, 59, 2001, 9, "", "uno"},
            {9, 200, 3600, 0, 1, "Álvarez", "zeta"},
            {10, nubo::core::FileDetails::kNoDate, 599, 1979, 4, "", "Ñandú"},
            {-1, 200, -1, 1979, 2, "Beltrán", "dos"},
        }};
        CatalogueList list;
        QAbstractItemModelTester tester(&list);
        for (std::size_t i = 0; i < values.size(); ++i) {
            CatalogueRow r = rowNamed(QString(QChar('a' + int(i))));
            const Values& v = values[i];
            r.details.size = v.size;
            r.details.modified = v.date;
            r.details.duration = v.duration;
            r.details.year = v.year;
            r.details.track = v.track;
            r.details.artist = QString::fromUtf8(v.artist);
            r.details.title = QString::fromUtf8(v.title);
            list.appendAtBottom(r);
        }
        list.flush();
        list.sortByColumn(Column(column), Qt::SortOrder(order));
        QCOMPARE(names(list).join(QString()), expected);
        QCOMPARE(shownNames(list), names(list));
    }

    // A Spanish user expects accented names beside their letter, whatever the case.
    // A Spanish desktop and the bare C locale (no language set) sort alike.
    void sortFollowsTheLanguage()
    {
        const QLocale before;
        for (const QLocale& language : {QLocale(QLocale::Spanish, QLocale::Spain), QLocale::c()}) {
            QLocale::setDefault(language);
            CatalogueList list;
            fill(list, {QStringLiteral("Zeta"), QStringLiteral("beta"), QStringLiteral("Álvaro"),
                        QStringLiteral("gamma"), QStringLiteral("ñu"), QStringLiteral("Oca")});
            list.sortByColumn(Column::Nombre, Qt::AscendingOrder);
            QCOMPARE(names(list), QStringList({"Álvaro", "beta", "gamma", "ñu", "Oca", "Zeta"}));
        }
        QLocale::setDefault(before);
    }

    // A hundred thousand rows under the tester: batches at both ends, sorts by a column of
    // repeated texts (equal ones in two cases) and by name, many separate runs removed, a rename.
    void largeListUnderTheTester()
    {
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
        constexpr int kRows = 100000;
        CatalogueList list;
        QAbstractItemModelTester tester(&list);
        const auto folder = [](int i) {
            return QStringLiteral("/%1isco %2/").arg(i % 3 ? 'd' : 'D').arg(i / 7 % 40);
        };
        for (int i = 0; i < kRows; ++i) {
            const CatalogueRow r = rowNamed(QString::number(i), folder(i));
            i % 2 ? list.insertAtTop(r) : list.appendAtBottom(r);
            if (i % 25000 == 0)
                list.flush();
        }
        list.flush();
        QCOMPARE(list.rowCount(), kRows);
        // Neighbours with equal texts share one copy of them.
        QCOMPARE(list.row(1).direccion.constData(), list.row(2).direccion.constData());
        QCollator collator(QLocale(QLocale::Spanish, QLocale::Spain));
        collator.setCaseSensitivity(Qt::CaseInsensitive);
        for (const Column column : {Column::Direccion, Column::Nombre})
            for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
                const QStringList was = names(list);
                QHash<QString, int> positionWas;
                for (int p = 0; p < kRows; ++p)
                    positionWas.insert(was[p], p);
                list.sortByColumn(column, order);
                for (int p = 1; p < kRows; ++p) {
                    const CatalogueRow &a = list.row(p - 1), &b = list.row(p);
                    const int c = collator.compare(a.text(column), b.text(column));
                    QVERIFY(order == Qt::AscendingOrder ? c <= 0 : c >= 0);
                    if (c == 0) // equal folders, whatever their case, keep their order
                        QVERIFY(positionWas[a.nombre] < positionWas[b.nombre]);
                }
            }
        std::vector<int> every3rd;
        for (int p = 0; p < kRows; p += 3)
            every3rd.push_back(p);
        QCOMPARE(list.removePositions(every3rd), (kRows + 2) / 3);
        QCOMPARE(list.rowCount(), kRows - (kRows + 2) / 3);
        QVERIFY(list.setData(list.indexAt(500), QStringLiteral("nuevo")));
        list.removeAt(0);
        QCOMPARE(list.row(499).nombre, QStringLiteral("nuevo"));
    }

    // A blank new name would be saved as a nameless row: the old name stays.
    void renamingToBlankKeepsTheName()
    {
        CatalogueList list;
        QAbstractItemModelTester tester(&list);
        fill(list, {QStringLiteral("tema")});
        const QModelIndex name = list.indexAt(0);
        QVERIFY(!list.setData(name, QString()));
        QVERIFY(!list.setData(name, QStringLiteral("  \t")));
        QVERIFY(list.setData(name, QStringLiteral(" otro ")));
        QCOMPARE(list.row(0).nombre, QStringLiteral(" otro "));
    }
};

QTEST_GUILESS_MAIN(TestCatalogueList)
#include "tst_CatalogueList.moc"
