// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/CatalogueSamples.h"

#include "core/cli/Cli.h"
#include "database/cli/DatabaseCommands.h"
#include "library/LibraryIndex.h"
#include "library/cli/LibraryCommand.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include "TestFiles.h"

using namespace nubo::library;
using nubo::database::CatalogueRecord;

namespace {

struct Run
{
    int status;
    QString out;
    QString err;
};

Run run(const QList<nubo::cli::CliCommand>& commands, const QStringList& args)
{
    QString out;
    QString err;
    QTextStream outStream(&out);
    QTextStream errStream(&err);
    nubo::cli::CliIo io{outStream, errStream};
    const int status = nubo::cli::Cli(commands).run(args, io);
    outStream.flush();
    errStream.flush();
    return {status, out, err};
}

Run runLibrary(const QString& library, const QStringList& args)
{
    return run({cli::libraryCommand(library)}, QStringList{QStringLiteral("library")} + args);
}

bool save(const QString& path, const QList<CatalogueRecord>& rows)
{
    return nubo::database::saveCatalogue(path, {},
                                         {rows.size(), [&](qsizetype i) { return rows.at(i); }})
        .ok;
}

QStringList foundNames(LibraryIndex& index, const QString& words)
{
    QStringList names;
    const nubo::Outcome<qint64> found =
        index.find(words, [&](const QString&, const nubo::catalogue::CatalogueRow& row) {
            names.append(row.nombre);
        });
    return found ? names : QStringList{QStringLiteral("error: ") + found.reason()};
}

} // namespace

class LibraryIndexTest final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        QVERIFY(m_dir.isValid());
        m_xls = m_dir.filePath(QStringLiteral("uno.xls"));
        m_mdb = m_dir.filePath(QStringLiteral("dos.mdb"));
        m_library = m_dir.filePath(QStringLiteral("datos/biblioteca.sqlite"));
        QVERIFY(save(m_xls, nubo::database::test::detailedRows(120)));
        QList<CatalogueRecord> other = nubo::database::test::sampleRows(40);
        other.append({QStringLiteral("Canción de cuna0"), QStringLiteral("/Otro/"),
                      QStringLiteral("Disco 2"), QStringLiteral("MP3")});
        QVERIFY(save(m_mdb, other));
        QCOMPARE(runLibrary(m_library, {"add", m_xls, m_mdb}).status, 0);
    }
    void cleanup() { QFile::remove(m_library); }

    // The library answers exactly what reading every file answers, line for line, status too.
    void findsWhatTheFileFindFinds_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<int>("status");
        for (const char* words : {"cancion", "CANCIÓN 1", "quiroga 3", "artista:quiroga álbum",
                                  "año:1979", "formato:mp3 =grupo", "/musica/album 5/", "pista:7",
                                  "tamaño:5000", "fecha:19", "duracion:1:", "origen:disco"})
            QTest::newRow(words) << QString::fromUtf8(words) << 0;
        QTest::newRow("nothing") << QStringLiteral("nada-parecido") << 1;
        QTest::newRow("no column") << QStringLiteral("12:30") << 1;
    }
    void findsWhatTheFileFindFinds()
    {
        QFETCH(QString, words);
        QFETCH(int, status);
        const Run files =
            run(nubo::database::cli::databaseCommands(), {"find", words, m_mdb, m_xls});
        const Run library = runLibrary(m_library, {"find", words});
        QCOMPARE(library.out, files.out);
        QCOMPARE(library.status, files.status);
        QCOMPARE(files.status, status);
        QCOMPARE(runLibrary(m_library, {"find", "--count", words}).status, files.status);
    }

    // A catalogue changed on disk is read again before a question; one gone is kept, marked
    // missing; remove and rebuild act on the library only.
    void followsTheFilesOnDisk()
    {
        LibraryIndex index(m_library);
        QVERIFY(index.open());
        QCOMPARE(foundNames(index, "otro/"), QStringList{"Canción de cuna0"});
        QTest::qWait(20); // a later modification time
        QVERIFY(save(
            m_mdb,
            {{QStringLiteral("Nuevo tema"), QStringLiteral("/Otro/"), {}, QStringLiteral("WAV")}}));
        const nubo::Outcome<RefreshReport> fresh = index.refreshStale();
        QVERIFY(fresh);
        QCOMPARE(fresh->reread, QStringList{m_mdb});
        QCOMPARE(foundNames(index, "otro/"), QStringList{"Nuevo tema"});

        QVERIFY(QFile::remove(m_mdb));
        const Run listed = runLibrary(m_library, {"list"});
        QCOMPARE(listed.status, 0);
        QVERIFY2(listed.out.contains(m_mdb + "\tCatalogo\t1\tfalta\n"), qPrintable(listed.out));
        QCOMPARE(foundNames(index, "otro/"), QStringList{"Nuevo tema"});

        const nubo::Outcome<bool> removed = index.remove(m_mdb);
        QVERIFY(removed && *removed);
        QCOMPARE(foundNames(index, "otro/"), QStringList{});
        const nubo::Outcome<RefreshReport> rebuilt = index.rebuild();
        QVERIFY(rebuilt);
        QCOMPARE(rebuilt->reread, QStringList{m_xls});
        QCOMPARE(foundNames(index, "cuna0").size(), 1);
    }

    // A catalogue that no longer reads keeps the rows it gave; nothing is written to it.
    void aFailedAddKeepsThePreviousRows()
    {
        const QByteArray garbage("no es un catálogo");
        QVERIFY(nubo::test::writeFile(m_xls, garbage));
        LibraryIndex index(m_library);
        QVERIFY(index.open());
        const nubo::Outcome<qint64> added = index.add(m_xls);
        QVERIFY(!added);
        QVERIFY2(added.reason().startsWith("No se puede leer " + m_xls),
                 qPrintable(added.reason()));
        QCOMPARE(foundNames(index, "cuna0").size(), 3);
        QCOMPARE(nubo::test::fileBytes(m_xls), garbage);
        QCOMPARE(runLibrary(m_library, {"find", "cuna0"}).status, 2);
    }

    // A library file that is no database, or one of a later layout, is refused in Spanish.
    void refusesADamagedLibrary_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        QTest::newRow("garbage") << QByteArray(8192, 'x') << "está dañada o no es una biblioteca";
        QTest::newRow("cut header") << QByteArray("SQLite format 3\0\x10\0", 19) << "está dañada";
    }
    void refusesADamagedLibrary()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        const QString path = m_dir.filePath(QStringLiteral("mala.sqlite"));
        QVERIFY(nubo::test::writeFile(path, bytes));
        LibraryIndex index(path);
        const nubo::Outcome<> opened = index.open();
        QVERIFY(!opened);
        QVERIFY2(opened.reason().contains(reason), qPrintable(opened.reason()));
        // The library named on the command line, not the default one.
        const Run cli = runLibrary({}, {"--library", path, "list"});
        QCOMPARE(cli.status, 2);
        QVERIFY(cli.err.contains(reason));
        QCOMPARE(nubo::test::fileBytes(path), bytes);
    }

    // Another writer holding the library past the wait: a Spanish message, the rows as they were.
    void waitsForAnotherWriterThenSaysSo()
    {
        {
            QSqlDatabase other = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), "other");
            other.setDatabaseName(m_library);
            QVERIFY(other.open());
            QSqlQuery hold(other);
            QVERIFY(hold.exec(QStringLiteral("BEGIN IMMEDIATE")));
            LibraryIndex index(m_library);
            QVERIFY(index.open());
            const nubo::Outcome<qint64> added = index.add(m_xls);
            QVERIFY(!added);
            QVERIFY2(added.reason().contains("está ocupada por otro programa"),
                     qPrintable(added.reason()));
            QVERIFY(hold.exec(QStringLiteral("ROLLBACK")));
            QCOMPARE(foundNames(index, "cuna0").size(), 3);
        }
        QSqlDatabase::removeDatabase("other");
    }

    // Totals per disc, group and format; the same file on both discs is a duplicate.
    void answersTotalsAndDuplicates()
    {
        const Run stats = runLibrary(m_library, {"stats"});
        QCOMPARE(stats.status, 0);
        QVERIFY2(stats.out.contains("formato\tMP3\t\t161\t"), qPrintable(stats.out));
        QVERIFY(stats.out.endsWith("\n"));
        QVERIFY(
            stats.out.contains(QStringLiteral("disco\t%1\tDisco 2\t1\t0\t0:00:00\n").arg(m_mdb)));
        const Run json = runLibrary(m_library, {"stats", "--json"});
        QVERIFY(json.out.contains("\"archivos\": 161"));
        const Run dups = runLibrary(m_library, {"dups"});
        QCOMPARE(dups.status, 0);
        QVERIFY2(dups.out.contains("Canción de cuna0\tsolo por nombre\n"), qPrintable(dups.out));
    }

private:
    QTemporaryDir m_dir;
    QString m_xls;
    QString m_mdb;
    QString m_library;
};

QTEST_GUILESS_MAIN(LibraryIndexTest)
#include "tst_LibraryIndex.moc"
