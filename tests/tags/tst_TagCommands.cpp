#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"

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
        QVERIFY(run({"--help"}).out.contains("--raw"));
    }

private:
    struct Run
    {
        int status;
        QByteArray out;
        QByteArray err;
    };

    Run run(const QStringList& args)
    {
        QProcess process;
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
