// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/LibraryDuplicates.h"

#include <QtTest>

using namespace nubo::library;
using nubo::catalogue::CatalogueRow;

namespace {

// "catalogue|disc|name|format|size|artist|title|seconds", -1 for unknown numbers.
CatalogueRow rowOf(const QStringList& f)
{
    CatalogueRow row{f.at(2), QStringLiteral("/"), f.at(1), f.at(3), QStringLiteral("NN")};
    row.details.size = f.at(4).toLongLong();
    row.details.artist = f.at(5);
    row.details.title = f.at(6);
    row.details.duration = f.at(7).toInt();
    return row;
}

} // namespace

class LibraryDuplicatesTest final : public QObject
{
    Q_OBJECT

private slots:
    // Each set: its rule and its copies' catalogue:disc, in order.
    void findsTheSameFileOnTwoDiscs_data()
    {
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QStringList>("sets");
        QTest::newRow("name, format and size")
            << QStringList{"a|D1|tema|MP3|100|||-1", "b|D2|tema|MP3|100|||-1",
                           "b|D3|tema|MP3|101|||-1", "b|D3|tema|WAV|100|||-1"}
            << QStringList{"mismo nombre y tamaño a:D1 b:D2"};
        QTest::newRow("same disc twice is no duplicate")
            << QStringList{"a|D1|tema|MP3|100|||-1", "a|D1|tema|MP3|100|||-1"} << QStringList{};
        QTest::newRow("same group in two catalogues")
            << QStringList{"a|D1|tema|MP3|100|||-1", "b|D1|tema|MP3|100|||-1"}
            << QStringList{"mismo nombre y tamaño a:D1 b:D1"};
        QTest::newRow("tags within two seconds, case and accents aside")
            << QStringList{"a|D1|x|MP3|1|Mercedes Quiroga|Canción|200",
                           "b|D2|y|FLAC|2|MERCEDES QUIROGA|cancion|202",
                           "b|D3|z|FLAC|3|Mercedes Quiroga|Canción|205"}
            << QStringList{"mismas etiquetas a:D1 b:D2"};
        QTest::newRow("tags of copies already found by size")
            << QStringList{"a|D1|x|MP3|1|Ana|Uno|200", "b|D2|x|MP3|1|Ana|Uno|200"}
            << QStringList{"mismo nombre y tamaño a:D1 b:D2"};
        QTest::newRow("no size: name only")
            << QStringList{"a|D1|tema|MP3|-1|||-1", "b|D2|tema|MP3|500|||-1",
                           "c|D3|tema|OGG|-1|||-1"}
            << QStringList{"solo por nombre a:D1 b:D2"};
    }
    void findsTheSameFileOnTwoDiscs()
    {
        QFETCH(QStringList, rows);
        QFETCH(QStringList, sets);
        LibraryDuplicates duplicates;
        for (const QString& row : rows) {
            const QStringList fields = row.split(QLatin1Char('|'));
            duplicates.add(fields.first(), rowOf(fields));
        }
        QStringList found;
        for (const DuplicateSet& set : duplicates.sets()) {
            QString text = LibraryDuplicates::ruleText(set.rule);
            for (const DuplicateCopy& copy : set.copies)
                text += QLatin1Char(' ') + copy.catalogue + QLatin1Char(':') + copy.row.origen;
            found.append(text);
        }
        QCOMPARE(found, sets);
    }
};

QTEST_GUILESS_MAIN(LibraryDuplicatesTest)
#include "tst_LibraryDuplicates.moc"
