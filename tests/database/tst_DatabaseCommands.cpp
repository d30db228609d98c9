#include "CatalogueSamples.h"

#include "database/CatalogueFiles.h"
#include "database/cli/DatabaseCommands.h"

#include "core/cli/Cli.h"

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
};

QTEST_GUILESS_MAIN(DatabaseCommandsTest)
#include "tst_DatabaseCommands.moc"
