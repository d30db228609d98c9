#include "CatalogueSamples.h"

#include "database/CatalogueFiles.h"
#include "database/cli/DatabaseCommands.h"

#include "app/cli/Cli.h"

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
    }

    void mistakes_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("status");
        QTest::newRow("show without file") << QStringList{"show"} << 1;
        QTest::newRow("missing file") << QStringList{"show", "/nonexistent/a.xls"} << 2;
    }
    void mistakes()
    {
        QFETCH(QStringList, args);
        QFETCH(int, status);
        const Run result = run(args);
        QCOMPARE(result.status, status);
        QVERIFY(result.out.isEmpty());
        QVERIFY(!result.err.isEmpty());
    }
};

QTEST_GUILESS_MAIN(DatabaseCommandsTest)
#include "tst_DatabaseCommands.moc"
