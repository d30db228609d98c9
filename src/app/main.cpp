// The composition root: creates the services and windows and connects them.
#include "app/ActivityLog.h"
#include "app/Options.h"
#include "app/OptionsStore.h"
#include "app/StartupSequence.h"
#include "catalogue/ui/ListWindow.h"
#include "frame/ui/Form12.h"
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

    frame::Form12 mainWindow(appFolder);
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

    // The search window, the CD-ROM chooser and the engine the list window drives.
    search::ListWindowHost searchHost(list.catalogue, list.form);
    search::SearchWindows search({appFolder, searchHost, dialogs, *services.drives,
                                  *services.volumes, *services.directories, *services.tray});
    searchHost.setEngine(&search.engine);
    list.form.setSearchLauncher(&searchHost);
    search.controller.setCancelFlagRaiser([&list] { emit list.form.cancelRequested(); });
    QObject::connect(&list.form, &catalogue::Form1::searchWindowRequested, &search.form3,
                     [&search] { search.showSearchWindow(); });
    mainWindow.show();
    return application.exec();
}
