// SPDX-License-Identifier: GPL-3.0-or-later
#include "BiffFixtures.h"
#include "CatalogueSamples.h"

#include "database/CatalogueFiles.h"
#include "database/cli/CatalogueListing.h"
#include "database/cli/DatabaseCommands.h"

#include "core/cli/Cli.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include "TestFiles.h"

using namespace nubo::database;
using nubo::test::fileBytes;

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

    // --todo adds the nine detail columns to each row; --discos prints the disc records in
    // their place; both flatten tabs and line breaks as the rows' texts are.
    void listsEveryColumnOrTheDiscs_data()
    {
        QTest::addColumn<int>("listing");
        QTest::addColumn<QString>("out");
        QTest::newRow("rows") << int(cli::Listing::Rows)
                              << "Tema\t\\M\\\tDisco 1\tMP3\tNN\nOtro\t\\\tDisco 1\tWAV\tNN\n";
        QTest::newRow("every column")
            << int(cli::Listing::EveryColumn)
            << "Tema\t\\M\\\tDisco 1\tMP3\tNN\t5000000000\t\tCorazón partío\tMercedes "
               "Quiroga\t\t1979\t7\t\t1:02:05\n"
               "Otro\t\\\tDisco 1\tWAV\tNN\t\t\t\t\t\t\t\t\t\n";
        QTest::newRow("discs") << int(cli::Listing::Discs)
                               << "Disco 1\tMUSICA\t439041101\t\t700000000\t\t\t\\\t*.mp3\t"
                                  "Estante 3, caja azul\tprestado a Luis\n";
    }
    void listsEveryColumnOrTheDiscs()
    {
        QFETCH(int, listing);
        QFETCH(QString, out);
        LoadedCatalogue loaded;
        CatalogueRecord tagged{"Tema", "\\M\\", "Disco 1", "MP3"};
        tagged.details.size = 5'000'000'000;
        tagged.details.title = QStringLiteral("Corazón\tpartío");
        tagged.details.artist = QStringLiteral("Mercedes Quiroga");
        tagged.details.year = 1979;
        tagged.details.track = 7;
        tagged.details.duration = 3725;
        loaded.rows = {tagged, {"Otro", "\\", "Disco 1", "WAV"}};
        nubo::core::DiscRecord disc;
        disc.origen = QStringLiteral("Disco 1");
        disc.etiqueta = QStringLiteral("MUSICA");
        disc.serie = nubo::core::serialText(0x1A2B3C4D);
        disc.capacidad = 700'000'000;
        disc.carpeta = QStringLiteral("\\");
        disc.mascara = QStringLiteral("*.mp3");
        disc.ubicacion = QStringLiteral("Estante 3, caja azul");
        disc.notas = QStringLiteral("prestado a\nLuis");
        loaded.discs = {disc};
        QString printed;
        QTextStream stream(&printed);
        cli::printCatalogue(loaded, cli::Listing(listing), stream);
        stream.flush();
        QCOMPARE(printed, out);
    }

    // The options reach "show" from the command line and are named in its help; an unknown
    // one is a usage error.
    void showTakesItsOptions()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("a.xls"));
        QVERIFY(saveCatalogue(path, {}, rowsOf(test::sampleRows(3))).ok);
        const Run every = run({"show", "--todo", path});
        QCOMPARE(every.status, 0);
        const QStringList lines = every.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 3);
        for (const QString& line : lines)
            QCOMPARE(line.count(QLatin1Char('\t')), 13);
        QCOMPARE(run({"show", path, "--discos"}).status, 0);
        QCOMPARE(run({"show", "--todos", path}).status, 1);
        const QString help = run({"--help"}).out;
        QVERIFY(help.contains(QStringLiteral("--todo")) &&
                help.contains(QStringLiteral("--discos")));
    }

    // "convert" carries every column and the disc records; values "show" and "convert" cannot
    // read are said on the error output without failing.
    void convertKeepsDetailsAndDiscs()
    {
        QTemporaryDir dir;
        const QString source = dir.filePath(QStringLiteral("a.xls"));
        const QVariantList captions = {"NOMBRE", "DIRECCION", "ORIGEN", "FORMATO", "TAMAÑO", "AÑO"};
        const QByteArray file = test::compoundFile(
            {{"Workbook",
              test::biffSheets({{"Hoja", {captions, {}, {"a", "/", "g", "MP3", 5e9, "x"}}},
                                {"Discos", {{"ORIGEN", "NOTAS"}, {}, {"g", "prestado"}}}})}});
        QVERIFY(nubo::test::writeFile(source, file));
        const QString target = dir.filePath(QStringLiteral("b.xls"));
        for (const QStringList& args : {QStringList{"show", source}, {"convert", source, target}}) {
            const Run done = run(args);
            QCOMPARE(done.status, 0);
            QCOMPARE(done.err, "nubo-cli: El archivo " + source +
                                   " tiene 1 valor que no se pudo leer y se dejó vacío (columna "
                                   "AÑO).\n");
        }
        const auto converted = loadCatalogue(target);
        QVERIFY(converted);
        QCOMPARE(converted->rows.at(0).details.size, 5'000'000'000);
        QCOMPARE(converted->discs.size(), 1);
        QCOMPARE(converted->discs.at(0).notas, QStringLiteral("prestado"));
    }

    // "find" over files and a folder: the rows every word matches, without regard to case or
    // accents; an unreadable catalogue among them is named and the others are still searched.
    void findsRowsAcrossCatalogues_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("out");
        // The seven tag columns follow FORMATO, empty for rows without tags.
        const QString tags = QStringLiteral("\t").repeated(7) + QLatin1Char('\n');
        const QString a = QStringLiteral("a.xls\tCanción\t/m/\tRock\tMP3") + tags;
        const QString b = QStringLiteral("sub/b.mdb\tPista\t/c/\tCANCIONES\tWAV") + tags;
        const QString c = QStringLiteral("c.tsv\tcanción\tx t/\\\tTsv\tOGG") + tags;
        QTest::newRow("files") << QStringList{"CANCION", "a.xls", "sub/b.mdb"} << 0 << a + b;
        QTest::newRow("words in two fields") << QStringList{"pista cancion", "sub"} << 0 << b;
        QTest::newRow("scan tsv, escapes undone") << QStringList{"T/", "c.tsv"} << 0 << c;
        QTest::newRow("folder, one file unreadable")
            << QStringList{"canci", "."} << 2 << "./" + a + "./" + c + "./" + b;
        QTest::newRow("counts") << QStringList{"--count", "rock", "a.xls", "c.tsv"} << 0
                                << QStringLiteral("a.xls\t1\nc.tsv\t0\n");
        QTest::newRow("none") << QStringList{"blues", "a.xls"} << 1 << QString();
        QTest::newRow("field") << QStringList{"Origen:CANCI", "a.xls", "sub/b.mdb"} << 0 << b;
        QTest::newRow("format, only by its name")
            << QStringList{"formato:wav", "a.xls", "sub/b.mdb"} << 0 << b;
        QTest::newRow("unknown field is a word")
            << QStringList{"grupo:rock", "a.xls", "sub/b.mdb"} << 1 << QString();
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

    // A damaged catalogue: show and find print the rows read and exit 2 naming the damage;
    // convert saves them only to a new file.
    void damagedCataloguesExitTwo_data() { test::addFormats(); }
    void damagedCataloguesExitTwo()
    {
        QFETCH(QString, name);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        QVERIFY(test::writeZeroedBlockCatalogue(path, 3000));
        const Run shown = run({"show", path});
        QCOMPARE(shown.status, 2);
        QVERIFY2(shown.err.contains(QStringLiteral("está dañado: se leyeron")),
                 qPrintable(shown.err));
        const Run found = run({"find", "--count", "Tema", path});
        QCOMPARE(found.status, 2);
        QVERIFY(found.err.contains(QStringLiteral("está dañado")));
        const QString old = dir.filePath(QStringLiteral("viejo.xls"));
        QVERIFY(saveCatalogue(old, {}, rowsOf(test::sampleRows(2))).ok);
        const QByteArray oldBytes = fileBytes(old);
        QCOMPARE(run({"convert", path, old}).status, 2);
        QCOMPARE(fileBytes(old), oldBytes);
        const QString fresh = dir.filePath(QStringLiteral("rescate.mdb"));
        QCOMPARE(run({"convert", path, fresh}).status, 2);
        QCOMPARE(loadCatalogue(fresh)->rows.size(), shown.out.count(QLatin1Char('\n')));
        QVERIFY(!shown.out.isEmpty());
    }

    // nubo-cli convert killed at twenty moments of its save: the old file stays byte for byte
    // or the new one is whole. A save killed between naming its new file and putting it in
    // place leaves that name, which the next save of the target removes; nothing else is left.
    // The moments are only spread over a measured run: a loaded machine shifts them, and
    // every outcome of a kill at any moment must pass.
    void killedConvertLeavesTheOldFile_data()
    {
        QTest::addColumn<QString>("output");
        QTest::newRow("to workbook") << "salida.xls";
        QTest::newRow("to database") << "salida.mdb";
    }
    void killedConvertLeavesTheOldFile()
    {
        QFETCH(QString, output);
        QTemporaryDir dir;
        const QString source = dir.filePath(QStringLiteral("fuente.mdb"));
        QVERIFY(saveCatalogue(source, {}, rowsOf(test::sampleRows(6000))).ok);
        const QString target = dir.filePath(output);
        QVERIFY(saveCatalogue(target, {}, rowsOf(test::sampleRows(5))).ok);
        QByteArray old = fileBytes(target);
        const QString cli = QDir(qEnvironmentVariable("NUBO_APP_DIR")).filePath("nubo-cli");
        QElapsedTimer whole;
        whole.start();
        QCOMPARE(QProcess::execute(cli, {"convert", source, target}), 0);
        const qint64 span = std::max<qint64>(whole.elapsed(), 20);
        const auto left = [&dir] {
            return QDir(dir.path()).entryList(QDir::Files | QDir::Hidden | QDir::System);
        };
        for (int point = 0; point < 20; ++point) {
            QVERIFY(saveCatalogue(target, {}, rowsOf(test::sampleRows(5))).ok);
            old = fileBytes(target);
            QProcess process;
            process.start(cli, {"convert", source, target});
            QVERIFY(process.waitForStarted());
            QThread::msleep(quint64(span * point / 20));
            process.kill();
            QVERIFY(process.waitForFinished(30000));
            if (fileBytes(target) != old) { // killed once the new file was in place
                const auto loaded = loadCatalogue(target);
                QVERIFY(loaded && loaded->damage.isEmpty());
                QCOMPARE(loaded->rows.size(), 6000);
            }
            for (const QString& name : left())
                QVERIFY2(name == QLatin1String("fuente.mdb") || name == output ||
                             name.startsWith('.' + output + QLatin1String(".nubo-")),
                         qPrintable(name));
        }
        QCOMPARE(QProcess::execute(cli, {"convert", source, target}), 0);
        QCOMPARE(left(), (QStringList{QStringLiteral("fuente.mdb"), output}));
    }
};

QTEST_GUILESS_MAIN(DatabaseCommandsTest)
#include "tst_DatabaseCommands.moc"
