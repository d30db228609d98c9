// Starts the built program from a copy of its application folder and checks what the
// first start lays out and how a second start behaves.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

bool copyTree(const QString& from, const QString& to)
{
    QDir().mkpath(to);
    QDirIterator it(from, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString source = it.next();
        const QString target = to + source.mid(from.size());
        if (it.fileInfo().isDir()) {
            QDir().mkpath(target);
        } else if (!QFile::copy(source, target)) {
            return false;
        }
        if (it.fileInfo().isExecutable())
            QFile::setPermissions(target, it.fileInfo().permissions());
    }
    return true;
}

// Every file below root with its contents, to see whether anything changed.
QMap<QString, QByteArray> snapshot(const QString& root)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        files[file.fileName()] = file.open(QIODevice::ReadOnly) ? file.readAll() : "?";
    }
    return files;
}

} // namespace

class TestStartupProcess final : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_app;
    QProcessEnvironment m_env;

    void start(QProcess& process)
    {
        process.setProcessEnvironment(m_env);
        process.setProgram(m_app + QStringLiteral("/nubo"));
        process.start();
        QVERIFY(process.waitForStarted());
    }
    bool waitFor(const QString& path, int ms)
    {
        QDeadlineTimer deadline(ms);
        while (!deadline.hasExpired()) {
            if (QFile::exists(path) && QFile(path).size() > 0)
                return true;
            QTest::qWait(100);
        }
        return false;
    }

private slots:
    void initTestCase()
    {
        const QString built = qEnvironmentVariable("NUBO_APP_DIR");
        QVERIFY2(QFile::exists(built + QStringLiteral("/nubo")), "NUBO_APP_DIR has no nubo");
        m_app = m_dir.filePath(QStringLiteral("app"));
        QVERIFY(copyTree(built, m_app));
        for (const QString& extra : QDir(m_app).entryList({"nubo-*", "*.log"}, QDir::Files))
            QFile::remove(m_app + QLatin1Char('/') + extra);
        m_env = QProcessEnvironment::systemEnvironment();
        m_env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        m_env.insert(QStringLiteral("XDG_CONFIG_HOME"), m_dir.filePath(QStringLiteral("config")));
    }

    void firstStartThenSecondStart()
    {
        QProcess first;
        start(first);
        const QString registry = m_dir.filePath(QStringLiteral("config/nubo/registry.reg"));
        QVERIFY2(waitFor(registry, 60000), "the first start wrote no registry store");
        QVERIFY(waitFor(m_app + QStringLiteral("/Ini/Config.nbo"), 30000));
        QTest::qWait(500);

        QFile ini(m_app + QStringLiteral("/Ini/Config.nbo"));
        QVERIFY(ini.open(QIODevice::ReadOnly));
        QCOMPARE(ini.readAll(), QByteArray("[OPCIONES]\r\nDBLCLKEXECUTE=1\r\nPERMITIRANIMS=1\r\n"
                                           "ESCRIBIRLOG=1\r\nCONFIGEXCEL=0\r\nMOSTARPRO=1\r\n"
                                           "MINSTANCES=0\r\n"));
        ini.close();
        QFile reg(registry);
        QVERIFY(reg.open(QIODevice::ReadOnly));
        const QByteArray regText = reg.readAll();
        for (const char* name : {"\"Hwnd\"=hex:", "\"Minstances\"=hex:00", "\"InstalationPath\"="})
            QVERIFY2(regText.contains(name), name);

        // A second start while the first runs ends at once and changes nothing.
        const auto before = snapshot(m_dir.path());
        QProcess second;
        start(second);
        QVERIFY(second.waitForFinished(30000));
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), 0);
        QCOMPARE(snapshot(m_dir.path()), before);

        // With several instances allowed, a second start runs.
        QVERIFY(ini.open(QIODevice::WriteOnly | QIODevice::Truncate));
        ini.write("[OPCIONES]\r\nDBLCLKEXECUTE=1\r\nPERMITIRANIMS=1\r\nESCRIBIRLOG=1\r\n"
                  "CONFIGEXCEL=0\r\nMOSTRARPRO=1\r\nMINSTANCES=1\r\n");
        ini.close();
        QProcess third;
        start(third);
        QVERIFY(!third.waitForFinished(3000));
        QCOMPARE(third.state(), QProcess::Running);
        third.kill();
        third.waitForFinished();
        first.kill();
        first.waitForFinished();
    }
};

QTEST_GUILESS_MAIN(TestStartupProcess)
#include "tst_startupprocess.moc"
