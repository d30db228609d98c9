#include "platform/AppFolder.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using nubo::platform::AppFolder;

class TestAppFolder final : public QObject
{
    Q_OBJECT
private slots:
    void resolvesWithoutRegardToCase()
    {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath(QStringLiteral("Bitmap"));
        QFile(dir.filePath(QStringLiteral("Bitmap/form3bot1off.jpg"))).open(QIODevice::WriteOnly);
        const AppFolder app(dir.path() + QStringLiteral("/"));
        QCOMPARE(app.resolve(QStringLiteral("\\bitmap\\form3Bot1off.jpg")),
                 dir.filePath(QStringLiteral("Bitmap/form3bot1off.jpg")));
        QCOMPARE(app.resolve(QStringLiteral("/BITMAP/")), dir.filePath(QStringLiteral("Bitmap")));
    }

    void keepsUnmatchedComponentsAsWritten()
    {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath(QStringLiteral("Log"));
        const AppFolder app(dir.path());
        QCOMPARE(app.resolve(QStringLiteral("\\log\\nubo.log")),
                 dir.filePath(QStringLiteral("Log/nubo.log")));
        QCOMPARE(app.resolve(QStringLiteral("\\ini\\Config.nbo")),
                 dir.filePath(QStringLiteral("ini/Config.nbo")));
    }

    void prefersTheExactNameWhenTwoDiffer()
    {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath(QStringLiteral("a/x"));
        QDir(dir.path()).mkpath(QStringLiteral("A/y"));
        const AppFolder app(dir.path());
        QCOMPARE(app.resolve(QStringLiteral("A\\y")), dir.filePath(QStringLiteral("A/y")));
    }

    void createFolderLeavesAnyCaseAlone()
    {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath(QStringLiteral("bitmap"));
        const AppFolder app(dir.path());
        QVERIFY(app.createFolder(QStringLiteral("Bitmap")));
        QVERIFY(app.createFolder(QStringLiteral("Icons")));
        QStringList folders = QDir(dir.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
        folders.sort();
        QCOMPARE(folders, QStringList({"Icons", "bitmap"}));
    }
};

QTEST_GUILESS_MAIN(TestAppFolder)
#include "tst_appfolder.moc"
