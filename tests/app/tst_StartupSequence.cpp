// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DisplayPlatform.h"
#include "app/StartupSequence.h"
#include "platform/fakes/FakeDialogs.h"
#include "platform/fakes/FakeDrives.h"
#include "platform/fakes/FakeInstanceCheck.h"
#include "platform/fakes/FakeRegistry.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"
#include "core/AppFixture.h"

using namespace nubo::app;
using namespace nubo::core;
using namespace nubo::platform;

namespace {

// Records what start-up asks of the window; the cursor step fails when its file is missing.
class FakeView final : public IStartupView
{
public:
    QStringList steps;
    std::optional<RuntimeError> trayError;

    quint64 nativeHandle() override { return 1312458; }
    void loadButtonFaces() override { steps << "faces"; }
    void letEventsRun() override { steps << "events"; }
    std::optional<RuntimeError> setCustomCursor(const QString& path) override
    {
        steps << "cursor";
        if (!QFile::exists(path))
            return RuntimeError::fromNumber(errors::kFileNotFound);
        return std::nullopt;
    }
    std::optional<RuntimeError> addTrayIcon() override
    {
        steps << "tray";
        return trayError;
    }
    std::optional<RuntimeError> prepareSkinBox() override
    {
        steps << "skinbox";
        return std::nullopt;
    }
    void loadSkin(const QString&) override { steps << "skin"; }
    void fitToSkin() override { steps << "fit"; }
    void applyRegion() override { steps << "region"; }
};

struct Fixture : AppFixture
{
    PlatformServices services;
    FakeDrives* drives = new FakeDrives;
    FakeInstanceCheck* instances = new FakeInstanceCheck;
    FakeRegistry* registry = new FakeRegistry;
    FakeDialogs dialogs;
    FakeView view;
    QString executable = dir.filePath(QStringLiteral("nubo"));

    Fixture()
    {
        services.drives.reset(drives);
        services.instances.reset(instances);
        services.registry.reset(registry);
        drives->add(QStringLiteral("/"), DriveType::Fixed);
        QVERIFY(nubo::test::writeFile(dir.filePath(QStringLiteral("Cursors/DEFAULT.CUR"))));
    }
    StartupSequence::Outcome run()
    {
        StartupSequence sequence({app, options, store, log, services, dialogs, executable,
                                  [this] { view.steps << "prepare"; }});
        return sequence.run(view);
    }
    QByteArray logText() const
    {
        return nubo::test::fileBytes(dir.filePath(QStringLiteral("Log/nubo.log")));
    }
    QStringList entries() const
    {
        return QDir(dir.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
};

const QString kKey = QStringLiteral("HKEY_LOCAL_MACHINE\\Software\\Nubo15");

QByteArray savedConfig(const char* minstances)
{
    return QByteArray("[OPCIONES]\r\nDBLCLKEXECUTE=1\r\nPERMITIRANIMS=1\r\nESCRIBIRLOG=1\r\n"
                      "CONFIGEXCEL=0\r\nMOSTRARPRO=1\r\nMINSTANCES=") +
           minstances + "\r\n";
}

} // namespace

class TestStartupSequence final : public QObject
{
    Q_OBJECT
private slots:
    void firstStartLaysOutEverything()
    {
        Fixture f;
        for (const char* loose : {"foto.JPG", "fondo.bmp", "Nubologo.ico"})
            QVERIFY(nubo::test::writeFile(f.dir.filePath(QLatin1String(loose))));
        QCOMPARE(f.run(), StartupSequence::Outcome::Running);
        QCOMPARE(f.entries(), QStringList({"Bitmap", "Cursors", "Icons", "Ini", "Log"}));
        for (const char* placed : {"Bitmap/foto.JPG", "Bitmap/fondo.bmp", "Icons/Nubologo.ico",
                                   "Ini/Config.nbo", "Log/nubo.log"})
            QVERIFY2(QFile::exists(f.dir.filePath(QLatin1String(placed))), placed);
        QCOMPARE(f.view.steps, QStringList({"prepare", "faces", "events", "cursor", "tray",
                                            "skinbox", "skin", "fit", "region"}));
        QVERIFY(f.dialogs.asked.isEmpty());
        const auto& values = f.registry->keys.value(kKey);
        QCOMPARE(values.value(QStringLiteral("Hwnd")), QByteArray("1312"));
        QCOMPARE(values.value(QStringLiteral("Minstances")), QByteArray(1, '\0'));
        QCOMPARE(values.value(QStringLiteral("InstalationPath")),
                 f.dir.filePath(QStringLiteral("nubo")).toUtf8());
    }

    void secondInstanceEndsBeforeAnyChange()
    {
        Fixture f;
        f.instances->running = true;
        QCOMPARE(f.run(), StartupSequence::Outcome::EndProgram);
        QVERIFY(f.view.steps.isEmpty());
        QVERIFY(f.registry->keys.isEmpty());
        QVERIFY(f.dialogs.asked.isEmpty());
        QCOMPARE(f.entries(), QStringList({"Cursors"}));

        Fixture allowed; // unless the options allow more than one
        QVERIFY(nubo::test::writeFile(allowed.dir.filePath(QStringLiteral("Ini/Config.nbo")),
                                      savedConfig("1")));
        allowed.instances->running = true;
        QCOMPARE(allowed.run(), StartupSequence::Outcome::Running);
        QCOMPARE(allowed.registry->keys.value(kKey).value(QStringLiteral("Minstances")),
                 QByteArray(1, '\1'));
    }

    // An installed copy keeps its folders in the user's data folder: the disc it was started
    // from is what counts.
    void cdromStartIsRefused()
    {
        Fixture f;
        f.executable = QStringLiteral("/media/cdrom/nubo");
        f.drives->add(QStringLiteral("/media/cdrom"), DriveType::CdRom);
        QCOMPARE(f.run(), StartupSequence::Outcome::EndProgram);
        QCOMPARE(f.dialogs.asked.size(), 1);
        QVERIFY(f.dialogs.asked[0].text.contains(QStringLiteral("CD-ROM /media/cdrom,")));
        QVERIFY(f.registry->keys.isEmpty());
        QVERIFY(f.view.steps.isEmpty()); // the application folder was not made ready
    }

    void missingCursorReportsFileNotFound()
    {
        Fixture f;
        QFile::remove(f.dir.filePath(QStringLiteral("Cursors/DEFAULT.CUR")));
        QVERIFY(nubo::test::writeFile(f.dir.filePath(QStringLiteral("Ini/Config.nbo")),
                                      savedConfig("0")));
        QCOMPARE(f.run(), StartupSequence::Outcome::Running);
        QCOMPARE(f.view.steps, QStringList({"prepare", "faces", "events", "cursor"}));
        QCOMPARE(f.dialogs.asked.size(), 1);
        QVERIFY(f.dialogs.asked[0].text.contains(
            QStringLiteral("donde fue instalado.  ERROR NUMERO: 53 DESCRIPCION: ")));
        const QList<QByteArray> lines = f.logText().split('\n');
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines[0].startsWith(
            "El Archivo .exe ha sido movido del lugar inicial de instalacion. "));
    }

    void otherGuardedErrorGetsGenericReport()
    {
        Fixture f;
        f.view.trayError = RuntimeError::fromNumber(errors::kInvalidPicture);
        QCOMPARE(f.run(), StartupSequence::Outcome::Running);
        QCOMPARE(f.dialogs.asked.size(), 1);
        QCOMPARE(f.dialogs.asked[0].text,
                 QStringLiteral("Ha ocurrido el Error : 481: Imagen no válida"));
        QVERIFY(!f.view.steps.contains(QStringLiteral("skin")));
    }

    // A Wayland session with XWayland runs on X11; a platform the user chose is kept.
    void platformForSession()
    {
        QCOMPARE(nubo::app::platformForSession({}, "wayland-0", ":0"), QByteArray("xcb;wayland"));
        QCOMPARE(nubo::app::platformForSession({}, "wayland-0", {}), QByteArray());
        QCOMPARE(nubo::app::platformForSession("wayland", "wayland-0", ":0"), QByteArray());
        QCOMPARE(nubo::app::platformForSession({}, {}, ":0"), QByteArray());
    }
};

QTEST_GUILESS_MAIN(TestStartupSequence)
#include "tst_StartupSequence.moc"
