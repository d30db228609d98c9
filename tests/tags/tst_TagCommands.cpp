// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"
#include "tags/TaggedFiles.h"

// nubo-cli's "tag" and "type", run as a user would run them.
class TestTagCommands final : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        m_cli = QDir(qEnvironmentVariable("NUBO_APP_DIR")).filePath(QStringLiteral("nubo-cli"));
        QVERIFY2(QFileInfo(m_cli).isExecutable(), qPrintable(m_cli));
        QVERIFY(m_dir.isValid());
    }

    void tagPrintsTheDetailsBox()
    {
        QByteArray tail = "TAG" + QByteArray("Ca\xf1on").leftJustified(30, '\0') +
                          QByteArray(30, ' ') + QByteArray("Disco").leftJustified(30) + "2004" +
                          QByteArray(30, ' ');
        tail.append('\x93');
        const QString file = write("tema.mp3", QByteArray(50, 'a') + tail);
        const Run result = run({"tag", file});
        QCOMPARE(result.status, 0);
        // Zero-byte padding prints as nothing, as the box draws it, or as \0 when asked.
        const QByteArray rest = "\r\nAlbum: Disco" + QByteArray(25, ' ') +
                                "\r\nA\xc3\xb1o: 2004\r\nGenero: Synth Pop\r\n";
        QCOMPARE(result.out, "Titulo: Ca\xc3\xb1on" + rest);
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(run({"tag", "--raw", file}).out,
                 "Titulo: Ca\xc3\xb1on" + QByteArray("\\0").repeated(25) + rest);
    }

    // --all: one line per value under the library's keys; --json: the same as one object; an
    // unreadable file gives what is known and the message.
    void allAndJsonPrintEveryField()
    {
        const QString file = m_dir.filePath("tema.flac");
        QVERIFY(nubo::test::writeTagged(file, "flac",
                                        {{"TITLE", {"Κύκνος"}}, {"ARTIST", {"Ana", "Bea"}}},
                                        QByteArray(10, 'p')));
        const Run all = run({"tag", "--all", file});
        QCOMPARE(all.status, 0);
        const QStringList lines = QString::fromUtf8(all.out).split('\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.first(), "ARCHIVO\t" + file);
        for (const char* line : {"TITLE\tΚύκνος", "ARTIST\tAna", "ARTIST\tBea", "DURACION\t0:01",
                                 "SAMPLERATE\t8000", "CHANNELS\t1", "PICTURE\timage/png 10 bytes"})
            QVERIFY2(lines.contains(QString::fromUtf8(line)), line);
        const QJsonObject json = QJsonDocument::fromJson(run({"tag", "--json", file}).out).object();
        QCOMPARE(json["TAGS"]["ARTIST"].toArray().size(), 2);
        QCOMPARE(json["TAGS"]["TITLE"][0].toString(), "Κύκνος");
        QCOMPARE(json["PICTURE"]["BYTES"].toInt(), 10);

        const QString empty = write("vacio.mp3", {});
        const Run unreadable = run({"tag", "--all", empty});
        QCOMPARE(unreadable.status, 0);
        QVERIFY(unreadable.out.startsWith("ARCHIVO\t" + empty.toUtf8() + "\nTAMAÑO\t0\nTIPO\t"));
        QVERIFY(unreadable.err.contains("No se pudieron leer las etiquetas de este archivo."));
        QCOMPARE(QJsonDocument::fromJson(run({"tag", "--json", empty}).out)["ERROR"].toString(),
                 "No se pudieron leer las etiquetas de este archivo.");
    }

    // TIPO is Spanish in every form, whatever the user's locale.
    void typeNameInOneLanguage()
    {
        const QString file = write("nota.txt", "una línea\n");
        QStringList types;
        for (const char* lang : {"C.UTF-8", "es_ES.UTF-8", "de_DE.UTF-8"}) {
            const QStringList env{QStringLiteral("LANG=") + lang, "LC_ALL=", "LANGUAGE="};
            const QString all = QString::fromUtf8(run({"tag", "--all", file}, env).out);
            types.append(all.section(QStringLiteral("TIPO\t"), 1).section('\n', 0, 0));
            types.append(
                QJsonDocument::fromJson(run({"tag", "--json", file}, env).out)["TIPO"].toString());
        }
        QVERIFY(!types.first().isEmpty());
        QCOMPARE(types, QStringList(types.size(), types.first()));
    }

    // Standard error carries nubo-cli's own messages, never the toolkit's (the cover command
    // starts a graphics platform, which warns about a missing XDG_RUNTIME_DIR).
    void standardErrorHoldsOnlyItsOwnMessages()
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("XDG_RUNTIME_DIR"));
        for (const QStringList& args : {QStringList{"cover", "--help"}, QStringList{"type", "x"}}) {
            const Run result = run(args, {}, env);
            for (const QByteArray& line : result.err.split('\n')) {
                QVERIFY2(line.isEmpty() || line.startsWith("nubo-cli") || line.startsWith("uso:"),
                         line.constData());
            }
        }
    }

private:
    struct Run
    {
        int status;
        QByteArray out;
        QByteArray err;
    };

    // env: variables set over the test's own environment, or the whole environment.
    Run run(const QStringList& args, const QStringList& env = {},
            QProcessEnvironment whole = QProcessEnvironment::systemEnvironment())
    {
        QProcess process;
        for (const QString& variable : env)
            whole.insert(variable.section('=', 0, 0), variable.section('=', 1));
        process.setProcessEnvironment(whole);
        process.start(m_cli, args);
        if (!process.waitForFinished(30000))
            qFatal("nubo-cli did not finish");
        return {process.exitCode(), process.readAllStandardOutput(),
                process.readAllStandardError()};
    }

    QString write(const QString& name, const QByteArray& bytes)
    {
        return nubo::test::writtenFile(m_dir.filePath(name), bytes);
    }

    QTemporaryDir m_dir;
    QString m_cli;
};

QTEST_GUILESS_MAIN(TestTagCommands)
#include "tst_TagCommands.moc"
