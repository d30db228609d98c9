// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestFiles.h"
#include "core/cli/Cli.h"
#include "database/CatalogueFiles.h"
#include "platform/fakes/FakeVolumes.h"
#include "platform/linux/LinuxDirectoryReader.h"
#include "platform/linux/LinuxDrives.h"
#include "search/cli/ScanCommand.h"
#include "tags/TaggedFiles.h"

#include <QTemporaryDir>
#include <QTest>

using namespace nubo;

class TestScanCommand final : public QObject
{
    Q_OBJECT

    platform::LinuxDrives m_drives;
    platform::LinuxDirectoryReader m_reader;
    platform::FakeVolumes m_volumes;

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
        const cli::Cli cli({search::cli::scanCommand(m_drives, m_reader, m_volumes)});
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
        QCOMPARE(result.lines[0].section('\t', 0, 4),
                 "segundo\t" + folder + "/sub/\tNO ESPECIFICADO\tMP3\t" + prefix);
        QCOMPARE(result.lines[1].section('\t', 0, 4),
                 "primero\t" + folder + "/\tNO ESPECIFICADO\tMP3\t" + prefix);
    }

    // Each row ends with its own file's tags; a file without tags gets empty columns.
    void tagsAppendTheirColumns()
    {
        QTemporaryDir dir;
        const QString r = dir.path();
        QVERIFY(test::writeTagged(r + "/uno.mp3", "mp3",
                                  {{"TITLE", {"Uno"}}, {"ARTIST", {"Ana"}}, {"DATE", {"2001"}}}));
        QVERIFY(test::writeTagged(r + "/dos.mp3", "mp3",
                                  {{"TITLE", {"Dos\tbis"}}, {"TRACKNUMBER", {"2/9"}}}));
        QVERIFY(test::writeFile(r + "/tres.mp3", {}));
        const Result result = scan({r, "--tags"});
        QCOMPARE(result.status, 0);
        QCOMPARE(result.lines.size(), 3);
        QMap<QString, QStringList> columns;
        for (const QString& line : result.lines)
            columns[line.section('\t', 0, 0)] = line.split('\t').mid(5, 6);
        QCOMPARE(columns["uno"], QStringList({"Uno", "Ana", "", "2001", "", "0:01"}));
        QCOMPARE(columns["dos"], QStringList({"Dos\\tbis", "", "", "", "2", "0:01"}));
        QCOMPARE(columns["tres"], QStringList(6, QString()));
    }

    // Every line ends with the nine detail columns, after the tag columns of --tags; a saved
    // catalogue keeps them with the record of the scanned disc, and a saved .tsv reads back
    // with them.
    void detailsEndEveryRowAndReachTheFiles()
    {
        QTemporaryDir dir;
        const QString r = dir.path() + "/musica";
        QVERIFY(test::writeFile(r + "/nota.flac", "texto"));
        QVERIFY(test::writeTagged(r + "/uno.flac", "flac",
                                  {{"TITLE", {"Uno"}},
                                   {"ARTIST", {"Mercedes Quiroga"}},
                                   {"ALBUM", {"Sur"}},
                                   {"DATE", {"1979"}},
                                   {"TRACKNUMBER", {"3"}},
                                   {"GENRE", {"Folk"}}}));
        const QString prefix = m_drives.drivePrefixOf(r);
        const QString root = prefix.isEmpty() ? QStringLiteral("/") : prefix;
        m_volumes.detailsByPath[root] = {"DISCO_1", 0x1A2B3C4D, 255, 0, "ext4"};
        m_volumes.spaceByPath[root] = {5'000'000'000ULL, 1'000ULL};
        const qint64 size = QFileInfo(r + "/uno.flac").size();
        const QString date =
            core::dateText(QFileInfo(r + "/uno.flac").lastModified().toSecsSinceEpoch());

        for (const QStringList& extra : {QStringList{}, QStringList{"--tags"}}) {
            const Result result = scan(QStringList{r, "--mask", "*.flac"} + extra);
            QCOMPARE(result.status, 0);
            QMap<QString, QStringList> details;
            for (const QString& line : result.lines)
                details[line.section('\t', 0, 0)] = line.split('\t').mid(extra.isEmpty() ? 5 : 11);
            QCOMPARE(details["uno"],
                     QStringList({QString::number(size), date, "Uno", "Mercedes Quiroga", "Sur",
                                  "1979", "3", "Folk", "0:01"}));
            QCOMPARE(details["nota"].mid(2), QStringList(7, QString()));
            QCOMPARE(details["nota"][0], QStringLiteral("5"));
        }
        // A listing without details keeps the columns, empty.
        const Result bare = scan({r, "--mask", "*.flac", "--sin-detalles"});
        QCOMPARE(bare.status, 0);
        QCOMPARE(bare.lines.size(), 2);
        for (const QString& line : bare.lines)
            QCOMPARE(line.split('\t').mid(5), QStringList(9, QString()));

        for (const QString name : {"lista.xls", "lista.mdb", "lista.tsv"}) {
            const QString output = dir.filePath(name);
            QCOMPARE(scan({r, "--mask", "*.flac", "--group", "Disco 1", "--output", output}).status,
                     0);
            QList<database::CatalogueRecord> rows;
            QList<core::DiscRecord> discs;
            const database::LoadOutcome loaded = database::readAnyCatalogue(
                output, {{},
                         {},
                         [&rows](database::CatalogueRecord&& r) { rows.append(r); },
                         [&discs](QList<core::DiscRecord>&& d) { discs = d; }});
            QVERIFY2(loaded.ok, qPrintable(name + ": " + loaded.reason));
            QCOMPARE(rows.size(), 2);
            const auto& uno = rows[0].nombre == "uno" ? rows[0] : rows[1];
            if (name.endsWith("tsv")) {
                QCOMPARE(uno.details.artist, QStringLiteral("Mercedes Quiroga"));
                QCOMPARE(uno.details.size, size);
                QCOMPARE(uno.details.duration, 1);
            }
            if (!name.endsWith("tsv") && !discs.isEmpty()) {
                QCOMPARE(uno.details.year, quint16(1979));
                QCOMPARE(discs.size(), 1);
                const core::DiscRecord& d = discs[0];
                QCOMPARE((QStringList{d.origen, d.etiqueta, d.serie, d.carpeta, d.mascara}),
                         (QStringList{"Disco 1", "DISCO_1", "439041101", r.mid(prefix.size()) + "/",
                                      "*.flac"}));
                QCOMPARE(d.capacidad, 5'000'000'000LL);
            }
        }
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
        const auto loaded = database::loadCatalogue(output);
        QVERIFY2(loaded, qPrintable(loaded.reason()));
        QCOMPARE(loaded->rows.size(), 2);
        QStringList names{loaded->rows[0].nombre, loaded->rows[1].nombre};
        names.sort();
        QCOMPARE(names, (QStringList{"dos", "uno"}));
        QCOMPARE(loaded->rows[0].formato, QStringLiteral("MP3"));
    }

    // A .tsv target holds what standard output would show, the form "find" reads.
    void outputToTextHoldsTheLines()
    {
        QTemporaryDir dir;
        QVERIFY(test::writeFile(dir.path() + "/musica/uno.mp3"));
        const QString output = dir.filePath("lista.tsv");
        const Result shown = scan({dir.path() + "/musica", "--group", "Rock"});
        const Result saved = scan({dir.path() + "/musica", "--group", "Rock", "--output", output});
        QCOMPARE(saved.status, 0);
        QVERIFY(saved.lines.isEmpty());
        QCOMPARE(QString::fromUtf8(test::fileBytes(output)).split('\n', Qt::SkipEmptyParts),
                 shown.lines);
        QCOMPARE(shown.lines.size(), 1);
    }

    // Blanks that would split a row or a field are escaped; a name that is not UTF-8 is
    // reported on the error stream, left out, and ends the command with status 2.
    void oddNamesAreEscapedOrReported()
    {
        QTemporaryDir dir;
        QVERIFY(test::writeFile(dir.path() + "/a\tb\\c.mp3"));
        QVERIFY(test::writeFile(dir.path() + "/linea\nrota.mp3"));
        const Result clean = scan({dir.path()});
        QCOMPARE(clean.status, 0);
        QCOMPARE(clean.lines.size(), 2);
        QStringList names{clean.lines[0].section('\t', 0, 0), clean.lines[1].section('\t', 0, 0)};
        names.sort();
        QCOMPARE(names, (QStringList{"a\\tb\\\\c", "linea\\nrota"}));

        const QByteArray bad = QFile::encodeName(dir.path()) + "/mal\xff.mp3";
        const test::RemovedAtEnd rawName(bad);
        QVERIFY(test::writeRawName(bad));
        const Result mixed = scan({dir.path(), "--tags"});
        QCOMPARE(mixed.status, 2);
        QCOMPARE(mixed.lines.size(), 2);
        QVERIFY2(mixed.err.contains("omitido: " + dir.path() + "/mal"), qPrintable(mixed.err));

        const Result help = scan({"--help"});
        QCOMPARE(help.status, 0);
        QVERIFY(help.lines.join('\n').contains("\\t"));
    }

    // A usage error gives 1 and a missing folder 2, with nothing on the output.
    // A scan that finds nothing leaves an existing catalogue byte for byte (status 1), and a
    // special file named as the output is never replaced.
    void emptyScansAndSpecialTargetsKeepWhatIsThere_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("workbook") << "coleccion.xls";
        QTest::newRow("database") << "coleccion.mdb";
    }
    void emptyScansAndSpecialTargetsKeepWhatIsThere()
    {
        QFETCH(QString, name);
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkpath("vacia"));
        QVERIFY(test::writeFile(dir.path() + "/musica/a.mp3"));
        const QString output = dir.filePath(name);
        QCOMPARE(scan({dir.path() + "/musica", "--output", output}).status, 0);
        const QByteArray before = test::fileBytes(output);
        const Result empty = scan({dir.path() + "/vacia", "--output", output});
        QCOMPARE(empty.status, 1);
        QVERIFY2(empty.err.contains(QStringLiteral("se ha dejado como estaba")),
                 qPrintable(empty.err));
        QCOMPARE(test::fileBytes(output), before);

        const QString link = dir.filePath("nulo." + name.right(3));
        QVERIFY(QFile::link(QStringLiteral("/dev/null"), link));
        const Result special = scan({dir.path() + "/musica", "--output", link});
        QCOMPARE(special.status, 2);
        QVERIFY(QFileInfo(link).isSymLink());
        QVERIFY(special.err.contains(QStringLiteral("no es un archivo normal")));
    }

    void mistakesAreReported()
    {
        const Result usage = scan({});
        QCOMPARE(usage.status, 1);
        QVERIFY(usage.lines.isEmpty() && !usage.err.isEmpty());
        const Result missing = scan({"/no/existe/nunca"});
        QCOMPARE(missing.status, 2);
        QVERIFY(missing.lines.isEmpty() && !missing.err.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestScanCommand)
#include "tst_ScanCommand.moc"
