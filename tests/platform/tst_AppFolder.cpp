// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/AppFolder.h"
#include "platform/AppFolderLocation.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"

using nubo::platform::AppFolder;
using nubo::platform::AppFolderLocation;

class TestAppFolder final : public QObject
{
    Q_OBJECT
private slots:
    // Each component matches a folder whatever its case, the exact name first; a component
    // nothing matches is kept as written.
    void resolvesWithoutRegardToCase()
    {
        QTemporaryDir dir;
        for (const char* folder : {"Bitmap", "Log", "a/x", "A/y"})
            QDir(dir.path()).mkpath(QLatin1String(folder));
        QVERIFY(nubo::test::writeFile(dir.filePath(QStringLiteral("Bitmap/form3bot1off.jpg"))));
        const AppFolder app(dir.path() + QStringLiteral("/"));
        QCOMPARE(app.resolve(QStringLiteral("\\bitmap\\form3Bot1off.jpg")),
                 dir.filePath(QStringLiteral("Bitmap/form3bot1off.jpg")));
        QCOMPARE(app.resolve(QStringLiteral("/BITMAP/")), dir.filePath(QStringLiteral("Bitmap")));
        QCOMPARE(app.resolve(QStringLiteral("\\log\\nubo.log")),
                 dir.filePath(QStringLiteral("Log/nubo.log")));
        QCOMPARE(app.resolve(QStringLiteral("\\ini\\Config.nbo")),
                 dir.filePath(QStringLiteral("ini/Config.nbo")));
        QCOMPARE(app.resolve(QStringLiteral("A\\y")), dir.filePath(QStringLiteral("A/y")));
        // Creating a folder that exists in any case leaves it alone.
        QVERIFY(app.createFolder(QStringLiteral("bitmap")));
        QVERIFY(app.createFolder(QStringLiteral("Icons")));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name),
                 QStringList({"A", "Bitmap", "Icons", "Log", "a"}));
    }

    // A portable folder is used in place; an installed program (pictures in share/nubo) or
    // a folder the user cannot write moves to $XDG_DATA_HOME/nubo with the pictures copied.
    void choosesTheApplicationFolder_data()
    {
        QTest::addColumn<bool>("installed");
        QTest::addColumn<bool>("writable");
        QTest::addColumn<bool>("userFolder");
        QTest::newRow("portable") << false << true << false;
        QTest::newRow("read-only portable") << false << false << true;
        QTest::newRow("installed") << true << false << true;
    }
    void choosesTheApplicationFolder()
    {
        QFETCH(bool, installed);
        QFETCH(bool, writable);
        QFETCH(bool, userFolder);
        QTemporaryDir dir;
        const QString bin = dir.filePath(QStringLiteral("prefix/bin"));
        const QString pictures =
            installed ? dir.filePath(QStringLiteral("prefix/share/nubo")) : bin;
        QVERIFY(nubo::test::writeFile(pictures + QStringLiteral("/Bitmap/conarrows.JPG"), "s"));
        QVERIFY(nubo::test::writeFile(pictures + QStringLiteral("/Cursors/DEFAULT.CUR"), "c"));
        QVERIFY(nubo::test::writeFile(bin + QStringLiteral("/nubo"), "exe"));
        const QString data = dir.filePath(QStringLiteral("data"));
        const AppFolderLocation location(bin, data, writable);

        QCOMPARE(location.usesUserFolder(), userFolder);
        QCOMPARE(location.folder(), userFolder ? data + QStringLiteral("/nubo") : bin);
        QVERIFY(!QFileInfo::exists(data)); // naming the folder writes nothing
        QCOMPARE(location.prepare(), userFolder ? data + QStringLiteral("/nubo") : bin);
        QCOMPARE(QFileInfo::exists(data), userFolder);
        if (!userFolder)
            return;
        const QString user = data + QStringLiteral("/nubo/");
        QCOMPARE(nubo::test::fileBytes(user + QStringLiteral("Bitmap/conarrows.JPG")), "s");
        QVERIFY(!QFileInfo::exists(user + QStringLiteral("nubo")));

        // Later starts keep the user's pictures and bring back what was deleted.
        QVERIFY(nubo::test::writeFile(user + QStringLiteral("Bitmap/conarrows.JPG"), "mine"));
        QVERIFY(QDir(user + QStringLiteral("Cursors")).removeRecursively());
        location.prepare();
        QCOMPARE(nubo::test::fileBytes(user + QStringLiteral("Bitmap/conarrows.JPG")), "mine");
        QCOMPARE(nubo::test::fileBytes(user + QStringLiteral("Cursors/DEFAULT.CUR")), "c");
    }
};

QTEST_GUILESS_MAIN(TestAppFolder)
#include "tst_AppFolder.moc"
