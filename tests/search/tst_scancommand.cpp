#include "TestFiles.h"
#include "app/cli/Cli.h"
#include "database/CatalogueFiles.h"
#include "platform/linux/LinuxDirectoryReader.h"
#include "platform/linux/LinuxDrives.h"
#include "search/cli/ScanCommand.h"

#include <QTemporaryDir>
#include <QTest>

using namespace nubo;

class TestScanCommand final : public QObject
{
    Q_OBJECT

    platform::LinuxDrives m_drives;
    platform::LinuxDirectoryReader m_reader;

    struct Result
    {
        int status = 0;
        QStringList lines;
        QString err;
    };

    Result scan(const QStringList& args)
    {
        QString out, err;
        QTextStream outStream(&out), errStream(&err);
        cli::CliIo io{outStream, errStream, false};
        const cli::Cli cli({search::cli::scanCommand(m_drives, m_reader)});
        Result result;
        result.status = cli.run(QStringList{"scan"} + args, io);
        outStream.flush();
        errStream.flush();
        result.lines = out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        result.err = err;
        return result;
    }

private slots:
    void rowsComeNewestFirstWithFiveFields()
    {
        QTemporaryDir dir;
        const QString r = dir.path();
        QVERIFY(test::writeFile(r + "/primero.mp3"));
        QVERIFY(test::writeFile(r + "/sub/segundo.MP3"));
        QVERIFY(test::writeFile(r + "/sub/otro.wav"));
        const Result result = scan({r});
        QCOMPARE(result.status, 0);
        QCOMPARE(result.lines.size(), 2);
        const QString prefix = m_drives.drivePrefixOf(r);
        const QString folder = r.mid(prefix.size());
        QCOMPARE(result.lines[0], "segundo\t" + folder + "/sub/\tNO ESPECIFICADO\tMP3\t" + prefix);
        QCOMPARE(result.lines[1], "primero\t" + folder + "/\tNO ESPECIFICADO\tMP3\t" + prefix);
    }

    void maskGroupAndSeveralFolders()
    {
        QTemporaryDir one, two;
        QVERIFY(test::writeFile(one.path() + "/LEAME"));
        QVERIFY(test::writeFile(two.path() + "/tab\there.txt"));
        QVERIFY(test::writeFile(two.path() + "/.oculta/no.txt"));
        const Result result = scan({one.path(), two.path(), "--mask", "*.*", "--group", "Mis CD"});
        QCOMPARE(result.lines.size(), 2);
        QVERIFY(result.lines[0].startsWith("tab here\t"));
        QCOMPARE(result.lines[0].split('\t').size(), 5);
        QCOMPARE(result.lines[1].split('\t').value(2), QStringLiteral("Mis CD"));
        QCOMPARE(result.lines[1].split('\t').value(3), QStringLiteral("ARCHIVO"));
    }

    void outputSavesTheRows_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("workbook") << "lista.xls";
        QTest::newRow("database") << "lista.MDB";
    }
    void outputSavesTheRows()
    {
        QFETCH(QString, name);
        QTemporaryDir dir;
        QVERIFY(test::writeFile(dir.path() + "/musica/uno.mp3"));
        QVERIFY(test::writeFile(dir.path() + "/musica/dos.mp3"));
        const QString output = dir.filePath(name);
        const Result result = scan({dir.path() + "/musica", "--output", output});
        QCOMPARE(result.status, 0);
        QVERIFY(result.lines.isEmpty());
        QString error;
        const auto loaded = database::loadCatalogue(output, &error);
        QVERIFY2(loaded, qPrintable(error));
        QCOMPARE(loaded->rows.size(), 2);
        QStringList names{loaded->rows[0].nombre, loaded->rows[1].nombre};
        names.sort();
        QCOMPARE(names, (QStringList{"dos", "uno"}));
        QCOMPARE(loaded->rows[0].formato, QStringLiteral("MP3"));
    }

    void mistakesAreReported_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("status");
        QTest::newRow("no folder") << QStringList{} << 1;
        QTest::newRow("output of unknown kind") << QStringList{".", "--output", "x.csv"} << 1;
        QTest::newRow("output without value") << QStringList{".", "--output"} << 1;
        QTest::newRow("mask without value") << QStringList{".", "--mask"} << 1;
        QTest::newRow("unknown option") << QStringList{".", "--nada"} << 1;
        QTest::newRow("missing folder") << QStringList{"/no/existe/nunca"} << 2;
    }
    void mistakesAreReported()
    {
        QFETCH(QStringList, args);
        QFETCH(int, status);
        const Result result = scan(args);
        QCOMPARE(result.status, status);
        QVERIFY(result.lines.isEmpty());
        QVERIFY(!result.err.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestScanCommand)
#include "tst_scancommand.moc"
