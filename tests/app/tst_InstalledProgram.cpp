// SPDX-License-Identifier: GPL-3.0-or-later
// Installs the program into a temporary prefix, checks the desktop entry and AppStream data
// with the desktop's own validators, and starts the program from the prefix made read-only.
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include "Oracle.h"

namespace {

// Runs program to its end: its exit code, or -1 when it does not start or does not end.
int run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return -1;
    if (process.exitCode() != 0)
        qWarning("%s", process.readAll().constData());
    return process.exitCode();
}

// Takes write permission from every file and folder below root, or gives it back.
void setWritable(const QString& root, bool writable)
{
    QDirIterator it(root, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    QStringList paths{root};
    while (it.hasNext())
        paths << it.next();
    for (const QString& path : paths) {
        QFile::Permissions permissions = QFile::permissions(path);
        const QFile::Permissions write = QFile::WriteOwner | QFile::WriteGroup | QFile::WriteOther;
        QFile::setPermissions(path,
                              writable ? permissions | QFile::WriteOwner : permissions & ~write);
    }
}

// Every entry below root with its contents, to see whether anything changed.
QMap<QString, QByteArray> filesBelow(const QString& root)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(root, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        files[file.fileName()] = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    return files;
}

} // namespace

class TestInstalledProgram final : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_prefix;

private slots:
    void initTestCase()
    {
        m_prefix = m_dir.filePath(QStringLiteral("prefix"));
        QCOMPARE(run(qEnvironmentVariable("NUBO_CMAKE"),
                     {QStringLiteral("--install"), qEnvironmentVariable("NUBO_BUILD_DIR"),
                      QStringLiteral("--prefix"), m_prefix}),
                 0);
        setWritable(m_prefix, false);
    }
    void cleanupTestCase() { setWritable(m_prefix, true); }

    void installsItsFiles()
    {
        for (const char* path :
             {"bin/nubo", "share/nubo/Bitmap/conarrows.JPG", "share/nubo/Cursors/DEFAULT.CUR",
              "share/nubo/Icons/Nubologo.ico", "share/icons/hicolor/48x48/apps/nubo.png",
              "share/icons/hicolor/128x128/apps/nubo.png",
              "share/icons/hicolor/256x256/apps/nubo.png", "share/doc/nubo/copyright",
              "share/doc/nubo/changelog.gz", "share/man/man1/nubo.1.gz"})
            QVERIFY2(QFileInfo(m_prefix + QLatin1Char('/') + QLatin1String(path)).size() > 0, path);
    }

    // The desktop's validators accept the desktop entry and the AppStream data; the installed
    // nubo-cli runs.
    void installedFilesPassTheirChecks_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("desktop entry")
            << "desktop-file-validate" << QStringList{"share/applications/nubo.desktop"};
        QTest::newRow("metainfo") << "appstreamcli"
                                  << QStringList{"validate", "--no-net",
                                                 "share/metainfo/io.github.nubo.Nubo.metainfo.xml"};
        QTest::newRow("nubo-cli") << "bin/nubo-cli" << QStringList{"--help"};
    }
    void installedFilesPassTheirChecks()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        const bool ours = program.contains(QLatin1Char('/'));
        for (QString& argument : arguments)
            if (argument.contains(QLatin1Char('/')))
                argument = m_prefix + QLatin1Char('/') + argument;
        const nubo::test::OracleRun checked = nubo::test::runOracle(
            ours ? m_prefix + QLatin1Char('/') + program : program, arguments);
        QVERIFY2(!ours || checked.outcome != nubo::test::OracleRun::Outcome::Absent,
                 qPrintable(program + QStringLiteral(" was not installed")));
        NUBO_READ(checked);
    }

    // The installed program writes nothing beside itself: its folders go to the user's. A
    // second start while it runs ends at once and changes nothing.
    void startsFromTheReadOnlyPrefix()
    {
        const auto installed = filesBelow(m_prefix);
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("XDG_DATA_HOME"), m_dir.filePath(QStringLiteral("data")));
        env.insert(QStringLiteral("XDG_CONFIG_HOME"), m_dir.filePath(QStringLiteral("config")));
        QProcess nubo;
        nubo.setProcessEnvironment(env);
        nubo.start(m_prefix + QStringLiteral("/bin/nubo"), {});
        QVERIFY(nubo.waitForStarted());

        const QString user = m_dir.filePath(QStringLiteral("data/nubo/"));
        const QString config = user + QStringLiteral("Ini/Config.nbo");
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(config).size() > 0, 30000);
        QTRY_VERIFY(QFileInfo::exists(user + QStringLiteral("Log/nubo.log")));
        QVERIFY(QFileInfo::exists(user + QStringLiteral("Bitmap/conarrows.JPG")));
        QCOMPARE(nubo.state(), QProcess::Running);
        QTest::qWait(500);
        const auto userFiles = [this] {
            auto files = filesBelow(m_dir.filePath(QStringLiteral("data")));
            files.insert(filesBelow(m_dir.filePath(QStringLiteral("config"))));
            return files;
        };
        // A picture the user deleted stays deleted by a start that ends at its checks.
        QVERIFY(QFile::remove(user + QStringLiteral("Bitmap/conarrows.JPG")));
        const auto before = userFiles();
        QProcess second;
        second.setProcessEnvironment(env);
        second.start(m_prefix + QStringLiteral("/bin/nubo"), {});
        QVERIFY(second.waitForFinished(30000));
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(userFiles(), before);
        nubo.kill();
        nubo.waitForFinished();
        QCOMPARE(filesBelow(m_prefix), installed);
    }
};

QTEST_GUILESS_MAIN(TestInstalledProgram)
#include "tst_InstalledProgram.moc"
