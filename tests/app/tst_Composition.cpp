// SPDX-License-Identifier: GPL-3.0-or-later
// The running program put together, over a copy of the shipped pictures.
#include "app/Composition.h"
#include "app/InstanceChannel.h"
#include "catalogue/ui/CatalogueView.h"
#include "catalogue/ui/Form1.h"
#include "database/CatalogueFiles.h"
#include "frame/ui/Form12.h"
#include "search/ui/Form3.h"

#include <QAction>
#include <QApplication>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSystemTrayIcon>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <filesystem>
#include <memory>

#include "ProgramFolder.h"
#include "TestFiles.h"
#include "WindowControl.h"

using namespace nubo;
using test::control;

namespace {

// 20,000 matching names in 100 folders: hard links to one empty file, which a disk makes
// far faster than 20,000 new files.
bool layOutTree(const QString& root)
{
    const QString song = root + QStringLiteral("/tema.mp3");
    if (!test::writeFile(song, QByteArray()))
        return false;
    std::error_code error;
    for (int folder = 0; folder < 100 && !error; ++folder) {
        const QString path = QStringLiteral("%1/disco%2").arg(root).arg(folder);
        QDir().mkpath(path);
        for (int file = 0; file < 200 && !error; ++file)
            std::filesystem::create_hard_link(
                song.toStdString(),
                QStringLiteral("%1/tema%2.mp3").arg(path).arg(file).toStdString(), error);
    }
    return !error;
}

// Saves `count` rows named "tema0", "tema1", ... as a catalogue at `path`.
bool saveRows(const QString& path, qsizetype count)
{
    const database::CatalogueRowSource rows{
        count, [](qsizetype i) {
            return database::CatalogueRecord{QStringLiteral("tema%1").arg(i), "/", "A", "MP3"};
        }};
    return database::saveCatalogue(path, {}, rows).ok;
}

} // namespace

class TestComposition final : public QObject
{
    Q_OBJECT

    // The program over a fresh application folder in dir, started and on screen.
    static std::unique_ptr<app::Composition> started(const QTemporaryDir& dir)
    {
        qputenv("XDG_CONFIG_HOME", dir.filePath(QStringLiteral("config")).toUtf8());
        QGuiApplication::setQuitOnLastWindowClosed(false); // as nubo's main sets it
        if (!test::layOutProgramFolder(dir.filePath(QStringLiteral("app")),
                                       qEnvironmentVariable("NUBO_SOURCE_DIR")))
            return {};
        auto program = std::make_unique<app::Composition>(dir.filePath(QStringLiteral("app")));
        return program->start() ? std::move(program) : nullptr;
    }

    // Runs the program's event loop until the program ends it (0), or gives 1 after ms.
    // The application's own loop, since a nested one no longer starts once a test has ended
    // the program.
    static int runUntilEnd(int ms)
    {
        QTimer limit;
        QObject::connect(&limit, &QTimer::timeout, qApp, [] { QCoreApplication::exit(1); });
        limit.start(ms);
        return QCoreApplication::exec();
    }

private slots:
    // Ctrl+S during a search stops the walk and ends the program; nothing is added to the
    // emptied list.
    void exitStopsARunningSearch()
    {
        QTemporaryDir dir;
        const QString tree = dir.filePath(QStringLiteral("musica"));
        QVERIFY(layOutTree(tree));
        const auto program = started(dir);
        QVERIFY(program);
        auto* main = test::topLevelWindow<frame::Form12>("Form12");
        auto* list = test::topLevelWindow<catalogue::Form1>("Form1");
        auto* search = test::topLevelWindow<search::Form3>("Form3");
        QVERIFY(main && list && search);
        search->setFolderPath(tree);
        search->setMaskText(QStringLiteral("*.mp3"));

        const QAbstractItemModel* rows =
            control<catalogue::CatalogueView>(*list, "ListView1")->model();
        QElapsedTimer sinceExit;
        // Ctrl+S as soon as the walk shows its first rows.
        QObject::connect(
            rows, &QAbstractItemModel::rowsInserted, main,
            [&] {
                if (!sinceExit.isValid()) {
                    sinceExit.start();
                    QTest::keyClick(control<QLabel>(*main, "picMainSkin"), Qt::Key_S,
                                    Qt::ControlModifier);
                }
            },
            Qt::QueuedConnection);
        QTimer::singleShot(0, control<QPushButton>(*list, "Command1"), &QPushButton::click);
        QCOMPARE(runUntilEnd(30000), 0);
        // The time is reported, not asserted: a walk left running would add rows below.
        qInfo("ended %lld ms after Ctrl+S", static_cast<long long>(sinceExit.elapsed()));

        QCOMPARE(list->windowTitle(),
                 QStringLiteral("La Búsqueda ha sido cancelada por el usuario"));
        QCOMPARE(control<QAction>(*list, "mnuFindFiles")->text(),
                 QStringLiteral("&Buscar Archivo(s)..."));
        QCOMPARE(rows->rowCount(), 0);
    }

    // F12 inside a save's event turn: the save stops at its next row, the previous file stays
    // byte for byte with no temporary file beside it, and the program ends. (A database loads
    // last record first, so a finished save would have changed the file.)
    void f12DuringASaveKeepsThePreviousFile()
    {
        QTemporaryDir dir;
        const auto program = started(dir);
        QVERIFY(program);
        const QString catalogue = dir.filePath(QStringLiteral("discos.mdb"));
        QVERIFY(saveRows(catalogue, 30000));
        const QByteArray previous = test::fileBytes(catalogue);
        auto* list = test::topLevelWindow<catalogue::Form1>("Form1");
        QVERIFY(list);
        program->openAtStart(catalogue);
        QTRY_COMPARE_WITH_TIMEOUT(
            control<catalogue::CatalogueView>(*list, "ListView1")->model()->rowCount(), 30000,
            60000);
        QTRY_COMPARE(control<QLabel>(*list, "lblCurList")->text(), catalogue);

        QElapsedTimer sinceF12;
        QTimer pressF12; // ticks on every turn of events, the save's own included
        pressF12.setInterval(0);
        QObject::connect(&pressF12, &QTimer::timeout, list, [&] {
            if (control<QProgressBar>(*list, "ProgressBar1")->isVisible() && !sinceF12.isValid()) {
                sinceF12.start();
                QTest::keyClick(list, Qt::Key_F12);
            }
        });
        QTimer::singleShot(0, control<QAction>(*list, "guardarb"), &QAction::trigger);
        pressF12.start();
        QCOMPARE(runUntilEnd(60000), 0);
        QVERIFY(sinceF12.isValid());
        qInfo("ended %lld ms after F12", static_cast<long long>(sinceF12.elapsed()));
        QCOMPARE(test::fileBytes(catalogue), previous);
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{"discos.mdb"});
    }

    // The Excel picture opens the sheet window over the list window, not in a screen corner.
    // A later start's request brings the hidden window back and opens the catalogue it names.
    // Where no notification area could show the icon (offscreen here), the window manager's
    // close request ends the program instead of leaving it running without a window.
    // An installed copy lays out its application folder during the start: the windows made
    // before then show their pictures all the same.
    void firstStartShowsThePictures()
    {
        QTemporaryDir dir;
        qputenv("XDG_CONFIG_HOME", dir.filePath(QStringLiteral("config")).toUtf8());
        const QString app = dir.filePath(QStringLiteral("app"));
        app::Composition program(app, [app] {
            QVERIFY(test::layOutProgramFolder(app, qEnvironmentVariable("NUBO_SOURCE_DIR")));
        });
        QVERIFY(program.start());
        QVERIFY(!QGuiApplication::windowIcon().availableSizes().isEmpty());
        QCOMPARE(QGuiApplication::desktopFileName(), QStringLiteral("nubo"));
        const auto* author = test::topLevelWindow<QWidget>("Form6");
        const auto* options = test::topLevelWindow<QWidget>("Form5");
        QVERIFY(author && options);
        QVERIFY(!author->windowIcon().availableSizes().isEmpty());
        QVERIFY(!control<QLabel>(*author, "Image1")->pixmap().isNull());
        QVERIFY(options->autoFillBackground());
    }

    void windowsOfTheRunningProgram()
    {
        QVERIFY(!QSystemTrayIcon::isSystemTrayAvailable());
        QTemporaryDir dir;
        const auto program = started(dir);
        QVERIFY(program);
        auto* main = test::topLevelWindow<frame::Form12>("Form12");
        auto* list = test::topLevelWindow<catalogue::Form1>("Form1");
        QVERIFY(main && list);
        list->show();
        list->move(40, 30);
        QTest::mouseClick(control<QLabel>(*list, "PicExcelConf"), Qt::LeftButton);
        const QWidget* sheet = test::topLevelWindow<QWidget>("Form7");
        QVERIFY(sheet && sheet->isVisible());
        QVERIFY(
            (sheet->frameGeometry().center() - list->frameGeometry().center()).manhattanLength() <=
            8); // the frame is not known before the first show
        // It stacks above the list window, even one kept on top.
        QVERIFY(sheet->windowHandle());
        QCOMPARE(sheet->windowType(), Qt::Dialog);
        QCOMPARE(sheet->windowHandle()->transientParent(), list->windowHandle());

        const QString catalogue = dir.filePath(QStringLiteral("discos.mdb"));
        QVERIFY(saveRows(catalogue, 2));
        list->hide();
        main->hide();
        QVERIFY(app::InstanceChannel::send(app::Composition::channelName(), catalogue));
        QTRY_VERIFY(main->isVisible());
        QTRY_COMPARE(control<catalogue::CatalogueView>(*list, "ListView1")->model()->rowCount(), 2);
        QVERIFY(list->isVisible());
        QCOMPARE(control<QLabel>(*list, "lblCurList")->text(), catalogue);
        // A second catalogue handed over joins the first one's rows: neither is current, so
        // "&Guardar" cannot write both into the last.
        const QString second = dir.filePath(QStringLiteral("otros.xls"));
        QVERIFY(saveRows(second, 3));
        QVERIFY(app::InstanceChannel::send(app::Composition::channelName(), second));
        QTRY_COMPARE(control<catalogue::CatalogueView>(*list, "ListView1")->model()->rowCount(), 5);
        QCOMPARE(control<QLabel>(*list, "lblCurList")->text(), QString());

        QTimer::singleShot(0, main, [main] { main->windowHandle()->close(); });
        QCOMPARE(runUntilEnd(5000), 0);
    }
};

QTEST_MAIN(TestComposition)
#include "tst_Composition.moc"
