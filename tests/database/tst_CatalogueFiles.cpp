#include "CatalogueSamples.h"

#include "database/CatalogueFiles.h"

#include <QDirIterator>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

using namespace nubo::database;
using namespace nubo::database::test;

namespace {

CatalogueRowSource source(const QList<CatalogueRecord>& rows)
{
    return {rows.size(), [&rows](qsizetype i) { return rows.at(i); }};
}

QList<CatalogueRecord> reversed(QList<CatalogueRecord> rows)
{
    std::reverse(rows.begin(), rows.end());
    return rows;
}

} // namespace

class CatalogueFilesTest final : public QObject
{
    Q_OBJECT

private slots:
    void formatByExtension_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("format"); // -1 none
        QTest::newRow("xls") << "lista.xls" << int(CatalogueFormat::Workbook);
        QTest::newRow("XLS") << "lista.XLS" << int(CatalogueFormat::Workbook);
        QTest::newRow("mdb") << "c.Mdb" << int(CatalogueFormat::Database);
        QTest::newRow("no dot") << "catalogomdb" << int(CatalogueFormat::Database);
        QTest::newRow("other") << "lista.csv" << -1;
    }
    void formatByExtension()
    {
        QFETCH(QString, path);
        QFETCH(int, format);
        const auto found = catalogueFormatOf(path);
        QCOMPARE(found ? int(*found) : -1, format);
    }

    void loadsInListOrder_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("workbook") << "lista.xls";
        QTest::newRow("database") << "lista.mdb";
    }
    void loadsInListOrder()
    {
        QFETCH(QString, name);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        QList<CatalogueRecord> rows = sampleRows(5);
        rows[2].nombre.clear(); // a workbook row without a name is not loaded
        QVERIFY(saveCatalogue(path, {}, source(rows)).ok);
        QString error;
        const auto loaded = loadCatalogue(path, &error);
        QVERIFY2(loaded, qPrintable(error));
        if (name.endsWith(QLatin1String(".xls"))) {
            rows.removeAt(2);
            QCOMPARE(loaded->name, QStringLiteral("Colección"));
            QCOMPARE(loaded->rows, rows);
        } else {
            QCOMPARE(loaded->name, QStringLiteral("Catalogo"));
            QCOMPARE(loaded->rows, reversed(rows)); // last record first
        }
    }

    void stoppingKeepsTheRowsWritten_data() { loadsInListOrder_data(); }
    void stoppingKeepsTheRowsWritten()
    {
        QFETCH(QString, name);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        const QList<CatalogueRecord> rows = sampleRows(50);
        QList<qsizetype> told;
        const SaveOutcome outcome = saveCatalogue(path, {}, source(rows), [&](qsizetype i) {
            told.append(i);
            return i < 7;
        });
        QVERIFY(outcome.ok);
        QVERIFY(outcome.stopped);
        QCOMPARE(outcome.written, 7);
        QCOMPARE(told, (QList<qsizetype>{0, 1, 2, 3, 4, 5, 6, 7}));
        QString error;
        QCOMPARE(loadCatalogue(path, &error)->rows.size(), 7);
    }

    void failedSaveKeepsThePreviousFile_data() { loadsInListOrder_data(); }
    void failedSaveKeepsThePreviousFile()
    {
        QFETCH(QString, name);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        const QList<CatalogueRecord> good = sampleRows(3);
        QVERIFY(saveCatalogue(path, {}, source(good)).ok);
        CatalogueSaveOptions bad;
        bad.header[1] = bad.header[0]; // a repeated field name
        bad.sheetName = QStringLiteral("no:vale");
        const SaveOutcome outcome = saveCatalogue(path, bad, source(sampleRows(9)));
        QVERIFY(!outcome.ok);
        QVERIFY(!outcome.error.isEmpty());
        QString error;
        QCOMPARE(loadCatalogue(path, &error)->rows.size(), 3);
    }

    void badFilesAreErrors_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QByteArray random(20000, '\0');
        QRandomGenerator generator(7);
        for (char& c : random)
            c = char(generator.bounded(256));
        for (const char* ext : {"xls", "mdb"}) {
            const QString file = QStringLiteral("malo.") + QLatin1String(ext);
            QTest::addRow("empty %s", ext) << file << QByteArray();
            QTest::addRow("zeros %s", ext) << file << QByteArray(65536, '\0');
            QTest::addRow("random %s", ext) << file << random;
            QTest::addRow("text %s", ext) << file << QByteArray("NOMBRE;DIRECCION\n");
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
        const QString path = dir.filePath(name);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.close();
        QString error;
        QVERIFY(!loadCatalogue(path, &error));
        QVERIFY(!error.isEmpty());
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
            QString error;
            if (!catalogueFormatOf(path))
                continue;
            const auto loaded = loadCatalogue(path, &error);
            QVERIFY2(loaded || !error.isEmpty(), qPrintable(path));
            ++count;
        }
        if (count == 0)
            QSKIP("the corpus is not available");
    }
};

QTEST_GUILESS_MAIN(CatalogueFilesTest)
#include "tst_CatalogueFiles.moc"
