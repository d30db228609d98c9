// SPDX-License-Identifier: GPL-3.0-or-later
#include "CatalogueSamples.h"

#include "database/CatalogueFiles.h"

#include <QDirIterator>
#include <QTemporaryDir>
#include <QtTest>

#include "TestFiles.h"

using namespace nubo::database;
using namespace nubo::database::test;

// The format-neutral entry points; the list window's flow over them is tested in
// tst_CatalogueFileFlow.
class CatalogueFilesTest final : public QObject
{
    Q_OBJECT

private slots:
    // The last three letters decide, with or without a dot, in any case.
    void formatByTheLastThreeLetters()
    {
        QVERIFY(catalogueFormatOf(QStringLiteral("lista.XLS")) == CatalogueFormat::Workbook);
        QVERIFY(catalogueFormatOf(QStringLiteral("catalogomdb")) == CatalogueFormat::Database);
        QVERIFY(!catalogueFormatOf(QStringLiteral("lista.csv")));
    }

    // Every text path survives either format, in the order the list appends the rows.
    void roundTrip_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("count");
        for (const char* name : {"lista.xls", "lista.mdb"}) {
            QTest::addRow("%s, empty", name) << QString(name) << 0;
            QTest::addRow("%s, thirty thousand", name) << QString(name) << 30000;
        }
    }
    void roundTrip()
    {
        QFETCH(QString, name);
        QFETCH(int, count);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        QList<CatalogueRecord> rows = sampleRows(count);
        QVERIFY(saveCatalogue(path, {}, rowsOf(rows)).ok);
        const auto loaded = loadCatalogue(path);
        QVERIFY2(loaded, qPrintable(loaded.reason()));
        const bool database = name.endsWith(QLatin1String("mdb"));
        QCOMPARE(loaded->name, database ? QStringLiteral("Catalogo") : QStringLiteral("Colección"));
        if (database)
            std::reverse(rows.begin(), rows.end()); // a database loads last first
        QCOMPARE(loaded->rows, rows);
    }

    // A stop before the third row leaves a file with two rows (a database asked for it ends
    // with one empty record more), a load stopped at its second row has handed over one, and a
    // save abandoned at its stop leaves the previous file byte for byte.
    void stopsKeepWhatCameBefore_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("emptyRecord");
        QTest::newRow("xls") << "parada.xls" << false;
        QTest::newRow("mdb") << "parada.mdb" << false;
        QTest::newRow("mdb, empty record") << "parada.mdb" << true;
    }
    void stopsKeepWhatCameBefore()
    {
        QFETCH(QString, name);
        QFETCH(bool, emptyRecord);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        const QList<CatalogueRecord> rows = sampleRows(5);
        const CatalogueRowSource source{rows.size(), [&rows](qsizetype i) { return rows[i]; }};
        CatalogueSaveOptions options;
        options.stopLeavesEmptyRecord = emptyRecord;
        qsizetype announced = -1;
        SaveHooks stopAtThird;
        stopAtThird.begun = [&announced](qsizetype n) { announced = n; };
        stopAtThird.beforeRow = [](qsizetype i) { return i < 2; };
        const SaveOutcome saved = saveCatalogue(path, options, source, stopAtThird);
        QVERIFY(saved.ok && saved.stopped && !saved.discarded);
        QCOMPARE(saved.written, 2);
        QCOMPARE(announced, 5);
        QList<CatalogueRecord> expected = rows.mid(0, 2);
        if (emptyRecord)
            expected.append(CatalogueRecord{});
        if (name.endsWith("mdb"))
            std::reverse(expected.begin(), expected.end()); // a database loads last first
        const auto loaded = loadCatalogue(path);
        QVERIFY2(loaded, qPrintable(loaded.reason()));
        QCOMPARE(loaded->rows, expected);

        QList<CatalogueRecord> handed;
        const LoadOutcome stopped =
            readCatalogue(path, {{},
                                 [](qsizetype i) { return i < 1; },
                                 [&handed](CatalogueRecord&& r) { handed.append(r); }});
        QVERIFY(stopped.ok && stopped.stopped);
        QCOMPARE(stopped.added, 1);
        QCOMPARE(handed, loaded->rows.mid(0, 1));

        const QByteArray before = nubo::test::fileBytes(path);
        SaveHooks discard = stopAtThird;
        discard.discardOnStop = [] { return true; };
        const SaveOutcome dropped = saveCatalogue(path, options, source, discard);
        QVERIFY(!dropped.ok && dropped.discarded);
        QCOMPARE(nubo::test::fileBytes(path), before);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{name});
    }

    void badFilesAreErrors_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        for (const char* ext : {"xls", "mdb"}) {
            const QString file = QStringLiteral("malo.") + QLatin1String(ext);
            QTest::addRow("empty %s", ext) << file << QByteArray();
            QTest::addRow("zeros %s", ext) << file << QByteArray(65536, '\0');
        }
        QTest::addRow("truncated jet") << "malo.mdb" << QByteArray("\0\1\0\0Standard Jet DB\0", 20);
        QTest::addRow("ole2 without workbook")
            << "malo.xls" << QByteArray::fromHex("d0cf11e0a1b11ae1") + QByteArray(600, '\0');
    }
    void badFilesAreErrors()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QTemporaryDir dir;
        const auto loaded = loadCatalogue(nubo::test::writtenFile(dir.filePath(name), bytes));
        QVERIFY(!loaded);
        QVERIFY(!loaded.reason().isEmpty());
    }

    // Seeds and every input the fuzzers found: each gives rows or an error.
    void corpusFilesAreErrorsOrRows()
    {
        const QString corpus =
            qEnvironmentVariable("NUBO_SOURCE_DIR") + QStringLiteral("/tests/database/corpus");
        QDirIterator files(corpus, QDir::Files, QDirIterator::Subdirectories);
        int count = 0;
        while (files.hasNext()) {
            const QString path = files.next();
            if (!catalogueFormatOf(path))
                continue;
            const auto loaded = loadCatalogue(path);
            QVERIFY2(loaded || !loaded.reason().isEmpty(), qPrintable(path));
            ++count;
        }
        QVERIFY2(count > 0, "the corpus under tests/database/corpus holds no catalogue");
    }
};

QTEST_GUILESS_MAIN(CatalogueFilesTest)
#include "tst_CatalogueFiles.moc"
