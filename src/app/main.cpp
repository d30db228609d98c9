// The composition root: creates the services and windows and connects them.
#include "app/ActivityLog.h"
#include "app/Options.h"
#include "app/OptionsStore.h"
#include "app/StartupSequence.h"
#include "catalogue/ui/ListWindow.h"
#include "frame/ui/Form12.h"
#include "frame/ui/Form5.h"
#include "frame/ui/Form6.h"
#include "frame/ui/Form8.h"
#include "frame/ui/QtNotifyArea.h"
#include "frame/ui/WindowDirectory.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/ui/DesktopShell.h"
#include "platform/ui/QtDialogs.h"
#include "search/ui/ListWindowHost.h"
#include "search/ui/SearchWindows.h"

#include <QApplication>
#include <QFileInfo>

#include <cstdio>

namespace {

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") ||
           !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

} // namespace

int main(int argc, char** argv)
{
    if (!hasDisplay()) {
        std::fputs("nubo: no hay pantalla gráfica (DISPLAY y WAYLAND_DISPLAY están vacías).\n"
                   "Inicie Nubo desde el escritorio, o bajo Xvfb con xvfb-run.\n",
                   stderr);
        return 1;
    }
    QApplication application(argc, argv);
    using namespace nubo;

    const platform::AppFolder appFolder(QCoreApplication::applicationDirPath());
    platform::PlatformServices services = platform::createLinuxPlatform();
    platform::QtDialogs dialogs;
    app::Options options;
    app::ActivityLog log(appFolder, [&options] { return options.isOn(app::Option::EscribirLog); });
    app::OptionsStore store(appFolder, options, log);

    // The frame's windows; the list and search windows join the directory as they land.
    frame::WindowDirectory windows;
    frame::QtNotifyArea notifyArea;
    frame::Form12 mainWindow({appFolder, options, windows, &notifyArea});
    frame::Form5 optionsWindow(appFolder, options, store, log);
    frame::Form6 authorWindow(appFolder);
    frame::Form8 trayMenu(windows);
    windows.connectWindow(frame::FrameWindow::Options, &optionsWindow);
    windows.connectWindow(frame::FrameWindow::Author, &authorWindow);
    windows.setEndProgram([] { QCoreApplication::exit(0); });
    mainWindow.setTrayMenu(&trayMenu);
    QObject::connect(&optionsWindow, &frame::Form5::closed, &mainWindow,
                     [&mainWindow] { mainWindow.playClosingFrames(2); });
    QObject::connect(&authorWindow, &frame::Form6::closed, &mainWindow,
                     [&mainWindow] { mainWindow.playClosingFrames(5); });
    dialogs.setParentWindow(&mainWindow);
    app::StartupSequence startup(
        {appFolder, options, store, log, services, dialogs,
         QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath()});
    if (startup.run(mainWindow) == app::StartupSequence::Outcome::EndProgram)
        return 0;

    // The list window: shown and hidden by the main window, never destroyed before the end.
    const std::unique_ptr<platform::IShell> shell = platform::createLinuxShell(&mainWindow);
    catalogue::ListWindow list({appFolder, *services.drives, dialogs, *shell, options});
    QObject::connect(&list.form, &catalogue::Form1::endProgramRequested, &application,
                     &QCoreApplication::quit);
    windows.connectWindow(frame::FrameWindow::List, &list.form);
    windows.setListExit([&list] { list.form.ExitProgram->trigger(); });
    windows.setEmptyList([&list] { list.catalogue.list().clear(); });
    QObject::connect(&list.form, &catalogue::Form1::sceneStepBackRequested, &mainWindow,
                     [&mainWindow] { mainWindow.playClosingFrames(1); });
    QObject::connect(&list.form, &catalogue::Form1::optionsWindowRequested, &optionsWindow,
                     [&windows] { windows.showWindow(frame::FrameWindow::Options); });

    // The search window, the CD-ROM chooser and the engine the list window drives.
    search::ListWindowHost searchHost(list.catalogue, list.form);
    search::SearchWindows search({appFolder, searchHost, dialogs, *services.drives,
                                  *services.volumes, *services.directories, *services.tray});
    searchHost.setEngine(&search.engine);
    list.form.setSearchLauncher(&searchHost);
    search.controller.setCancelFlagRaiser([&list] { emit list.form.cancelRequested(); });
    QObject::connect(&list.form, &catalogue::Form1::searchWindowRequested, &search.form3,
                     [&search] { search.showSearchWindow(); });
    windows.connectWindow(frame::FrameWindow::Search, &search.form3);
    QObject::connect(&search.form3, &search::Form3::closed, &mainWindow,
                     [&mainWindow] { mainWindow.playClosingFrames(4); });
    mainWindow.show();
    application.setQuitOnLastWindowClosed(false);
    return application.exec();
}
