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
