// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/SheetSettingsStore.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include "TestFiles.h"

using namespace nubo;
using namespace nubo::database;

namespace {

struct Folder
{
    QTemporaryDir dir;
    platform::AppFolder app{dir.path()};
    SheetSettingsStore store{app};

    Folder() { app.createFolder(QStringLiteral("Ini")); }
};

SheetSettings chosen()
{
    return {QStringLiteral("Música = ñ"),
            {0x12AB34, 0xC00001, excel::kDash, excel::kMedium, QStringLiteral("DejaVu Serif"), 12.5,
             true, false, true, 0x0000FE}};
}

} // namespace

class SheetSettingsStoreTest final : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip()
    {
        Folder f;
        QCOMPARE(f.store.load(), SheetSettings{}); // no file yet
        QVERIFY(f.store.save(chosen()));
        QVERIFY(f.store.path().endsWith(QStringLiteral("/Ini/Hoja.nbo")));
        QCOMPARE(f.store.load(), chosen());
        QVERIFY(QFile::remove(f.store.path()) && QDir(f.dir.path()).rmdir(QStringLiteral("Ini")));
        QVERIFY(!f.store.save(chosen())); // no folder
    }

    // Whatever is wrong with the file, the initial settings come back, never an error.
    void damagedFilesGiveTheInitialSettings_data()
    {
        QTest::addColumn<QString>("replace");
        QTest::addColumn<QString>("with");
        QTest::newRow("no section") << "[HOJA]" << QStringLiteral("[OTRA]");
        QTest::newRow("colour too wide")
            << "COLORRELLENO=12AB34" << QStringLiteral("COLORRELLENO=12AB345");
        QTest::newRow("size") << "TAMANO=12.5" << QStringLiteral("TAMANO=0");
        QTest::newRow("missing key") << "FUENTE=DejaVu Serif\n" << QString();
    }
    void damagedFilesGiveTheInitialSettings()
    {
        QFETCH(QString, replace);
        QFETCH(QString, with);
        Folder f;
        QVERIFY(f.store.save(chosen()));
        QString text = QString::fromUtf8(test::fileBytes(f.store.path()));
        QVERIFY(text.contains(replace));
        test::writtenFile(f.store.path(), text.replace(replace, with).toUtf8());
        QCOMPARE(f.store.load(), SheetSettings{});
    }
};

QTEST_GUILESS_MAIN(SheetSettingsStoreTest)
#include "tst_SheetSettingsStore.moc"
