// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/CatalogueList.h"
#include "catalogue/ListFilter.h"

#include <QAbstractItemModelTester>
#include <QItemSelectionModel>
#include <QSignalSpy>
#include <QTest>

#include <array>
#include <ctime>

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
        // Tags are searched like the name; a field holds a word to its column.
        QTest::newRow("artist") << "quiroga" << QStringList{"Pista 1"};
        QTest::newRow("year and title") << "1979" << QStringList{"Pista 1", "Otra"};
        QTest::newRow("field, case and accents") << "ARTISTA:quiróga" << QStringList{"Pista 1"};
        QTest::newRow("field with ñ") << "año:1979" << QStringList{"Pista 1"};
        QTest::newRow("field without ñ") << "Ano:1979" << QStringList{"Pista 1"};
        QTest::newRow("word outside its field") << "artista:corazon" << QStringList{};
        QTest::newRow("format by its name") << "formato:flac" << QStringList{"Pista 1"};
        QTest::newRow("format not as a word") << "flac" << QStringList{};
        QTest::newRow("length") << "duracion:3:05" << QStringList{"Pista 1"};
        QTest::newRow("field and word") << "origen:verano corazón" << QStringList{"Pista 1"};
        QTest::newRow("unknown field is a word") << "re:mix" << QStringList{"Otra"};
        QTest::newRow("unknown field, no match") << "grupo:verano" << QStringList{};
        QTest::newRow("empty field asks nothing") << "artista: vivo" << QStringList{"Álvaro Vivo"};
    }
    void matching()
    {
        QFETCH(QString, text);
        QFETCH(QStringList, expected);
        CatalogueList list;
        CatalogueRow tagged = row("Pista 1", "/ROCK/", "Verano");
        tagged.formato = QStringLiteral("FLAC");
        tagged.details.artist = QStringLiteral("Mercedes Quiroga");
        tagged.details.album = QStringLiteral("Corazón partío");
        tagged.details.year = 1979;
        tagged.details.duration = 185;
        CatalogueRow titled = row("Otra", "/m/", "CD VERANO");
        titled.details.title = QStringLiteral("Re:Mix 1979");
        fill(list, {row("Álvaro Vivo"), row("Canción triste"), tagged, titled});
        ListFilter filter(list);
        QAbstractItemModelTester tester(&filter);
        filter.setFindText(text);
        QCOMPARE(shown(filter), expected);
        QCOMPARE(filter.totalCount(), 4);
    }

    // A number held to its column is found as the list writes it, in any time zone: dates
    // before 1970 and far off, in summer and winter time, in an hour whose offset changes
    // halfway (Lord Howe Island), and lengths past an hour.
    void numbersAreFoundAsShown_data()
    {
        QTest::addColumn<QByteArray>("zone");
        for (const char* zone : {"UTC", "Europe/Madrid", "America/Santiago", "Australia/Lord_Howe"})
            QTest::newRow(zone) << QByteArray(zone);
    }
    void numbersAreFoundAsShown()
    {
        QFETCH(QByteArray, zone);
        const QByteArray before = qgetenv("TZ");
        qputenv("TZ", zone);
        tzset();
        const std::array<qint64, 10> dates = {
            -946771200, -1,         0,          1711846799,     1711846800,
            1719800000, 1728228540, 1728228660, 253402300799LL, -62135596800LL};
        const std::array<qint32, 5> lengths = {0, 59, 3599, 3600, 36061};
        CatalogueList list;
        for (std::size_t i = 0; i < dates.size(); ++i) {
            CatalogueRow r = row(QStringLiteral("r%1").arg(i));
            r.details.modified = dates[i];
            r.details.duration = lengths[i % lengths.size()];
            r.details.size = qint64(i) * 1000000000;
            r.details.track = quint16(i + 1);
            list.appendAtBottom(r);
        }
        list.flush();
        ListFilter filter(list);
        const QStringList captions = columnCaptions();
        for (int p = 0; p < list.count(); ++p) {
            for (const Column c :
                 {Column::Tamano, Column::Fecha, Column::Pista, Column::Duracion}) {
                QString words;
                for (const QString& part : list.row(p).displayText(c).split(QLatin1Char(' ')))
                    words += captions.at(int(c)) + QLatin1Char(':') + part + QLatin1Char(' ');
                filter.setFindText(words);
                QVERIFY2(shown(filter).contains(list.row(p).nombre), qPrintable(words));
            }
        }
        qputenv("TZ", before);
        tzset();
    }

    // Typing on narrows among the shown rows; the result is what a fresh filter shows.
    void typingAndErasingAgreeWithAFreshFilter()
    {
        CatalogueList list;
        QList<CatalogueRow> rows = {row("abc"), row("abd"), row("xab"), row("b a"), row("zzz")};
        rows[0].details.artist = QStringLiteral("Ana");
        rows[2].details.artist = QStringLiteral("Ana Bea");
        rows[4].details.artist = QStringLiteral("Bea");
        fill(list, rows);
        ListFilter filter(list);
        QAbstractItemModelTester tester(&filter);
        for (const char* text : {"a", "ab", "abd", "ab", "a b", "a b z", "", "artista:", "an",
                                 "artista:an", "artista:ana", "artista:ana b", "artista:ana bea",
                                 "bea", "nombre:b bea", "nombre:b", "b a"}) {
            filter.setFindText(text);
            ListFilter fresh(list);
            fresh.setFindText(text);
            QCOMPARE(shown(filter), shown(fresh));
        }
        QCOMPARE(shown(filter), QStringList({"abc", "abd", "xab", "b a", "zzz"})); // "Bea"
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
