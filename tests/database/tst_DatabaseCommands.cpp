// SPDX-License-Identifier: GPL-3.0-or-later
#include "CatalogueSamples.h"

#include "database/CatalogueFiles.h"
#include "database/cli/DatabaseCommands.h"

#include "core/cli/Cli.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace nubo::database;

namespace {

struct Run
{
    int status;
    QString out;
    QString err;
};

Run run(const QStringList& args)
{
    QString out;
    QString err;
    QTextStream outStream(&out);
    QTextStream errStream(&err);
    nubo::cli::CliIo io{outStream, errStream};
    const int status = nubo::cli::Cli(cli::databaseCommands()).run(args, io);
    outStream.flush();
    errStream.flush();
    return {status, out, err};
}

} // namespace

class DatabaseCommandsTest final : public QObject
{
    Q_OBJECT

private slots:
    // Rows as the list loads them, blanks for tabs and line breaks; mistakes on the error output.
    void showsRowsAsTheListLoadsThem()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("a.mdb"));
        const QList<CatalogueRecord> rows = {{"uno\tdos", "/m/", "g", "MP3"},
                                             {"tres", "/n/\nx", "", "WAV"}};
        QVERIFY(saveCatalogue(path, {}, {2, [&](qsizetype i) { return rows.at(i); }}).ok);
        const Run shown = run({"show", path});
        QCOMPARE(shown.status, 0);
        QCOMPARE(shown.out, QStringLiteral("tres\t/n/ x\t\tWAV\tNN\nuno dos\t/m/\tg\tMP3\tNN\n"));
        // A usage error gives 1 and a missing file 2, with nothing on the output.
        const Run usage = run({"show"});
        QCOMPARE(usage.status, 1);
        QVERIFY(usage.out.isEmpty() && !usage.err.isEmpty());
        const Run missing = run({"show", "/nonexistent/a.xls"});
        QCOMPARE(missing.status, 2);
        QVERIFY(missing.out.isEmpty() && !missing.err.isEmpty());
    }

    // "find" over files and a folder: the rows every word matches, without regard to case or
    // accents; an unreadable catalogue among them is named and the others are still searched.
    void findsRowsAcrossCatalogues_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("out");
        const QString a = QStringLiteral("a.xls\tCanción\t/m/\tRock\tMP3\n");
        const QString b = QStringLiteral("sub/b.mdb\tPista\t/c/\tCANCIONES\tWAV\n");
        const QString c = QStringLiteral("c.tsv\tcanción\tx t/\\\tTsv\tOGG\n");
        QTest::newRow("files") << QStringList{"CANCION", "a.xls", "sub/b.mdb"} << 0 << a + b;
        QTest::newRow("words in two fields") << QStringList{"pista cancion", "sub"} << 0 << b;
        QTest::newRow("scan tsv, escapes undone") << QStringList{"T/", "c.tsv"} << 0 << c;
        QTest::newRow("folder, one file unreadable")
            << QStringList{"canci", "."} << 2 << "./" + a + "./" + c + "./" + b;
        QTest::newRow("counts") << QStringList{"--count", "rock", "a.xls", "c.tsv"} << 0
                                << QStringLiteral("a.xls\t1\nc.tsv\t0\n");
        QTest::newRow("none") << QStringList{"blues", "a.xls"} << 1 << QString();
        QTest::newRow("missing file") << QStringList{"x", "nada.mdb", "a.xls"} << 2 << QString();
        QTest::newRow("usage") << QStringList{"x"} << 1 << QString();
    }
    void findsRowsAcrossCatalogues()
    {
        QFETCH(QStringList, args);
        QFETCH(int, status);
        QFETCH(QString, out);
        QTemporaryDir dir;
        QVERIFY(QDir::setCurrent(dir.path()));
        QDir().mkdir(QStringLiteral("sub"));
        QVERIFY(saveCatalogue(
                    "a.xls", {},
                    rowsOf({{"Canción", "/m/", "Rock", "MP3"}, {"Otra", "/m/", "Jazz", "MP3"}}))
                    .ok);
        QVERIFY(saveCatalogue("sub/b.mdb", {}, rowsOf({{"Pista", "/c/", "CANCIONES", "WAV"}})).ok);
        QFile tsv(QStringLiteral("c.tsv"));
        QVERIFY(tsv.open(QIODevice::WriteOnly));
        tsv.write("canci\xc3\xb3n\tx\\tt/\\\\\tTsv\tOGG\tC:\r\n\n");
        tsv.close();
        QFile whole(QStringLiteral("a.xls"));
        QFile bad(QStringLiteral("bad.xls")); // a workbook cut short
        QVERIFY(whole.open(QIODevice::ReadOnly) && bad.open(QIODevice::WriteOnly));
        bad.write(whole.read(whole.size() / 2));
        bad.close();
        const Run found = run(QStringList{"find"} + args);
        QCOMPARE(found.status, status);
        QCOMPARE(found.out, out);
        QCOMPARE(found.err.isEmpty(), status != 2 && args.size() > 1); // only failures speak
    }
};

QTEST_GUILESS_MAIN(DatabaseCommandsTest)
#include "tst_DatabaseCommands.moc"
