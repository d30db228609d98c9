// SPDX-License-Identifier: GPL-3.0-or-later
// The composition root: creates the services and windows and connects them.
#include "app/Composition.h"
#include "app/DisplayPlatform.h"
#include "platform/AppFolderLocation.h"

#include <QApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QTranslator>

#include <cstdio>

namespace {

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") ||
           !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

// The skin's shape, the opening effect's overlay and the tray menu need X11: in a Wayland
// session the program runs on XWayland when there is one.
void preferX11InWaylandSessions()
{
    const QByteArray platform = nubo::app::platformForSession(
        qgetenv("QT_QPA_PLATFORM"), qgetenv("WAYLAND_DISPLAY"), qgetenv("DISPLAY"));
    if (!platform.isEmpty())
        qputenv("QT_QPA_PLATFORM", platform);
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
    preferX11InWaylandSessions();
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    // The program speaks Spanish, so Qt's own buttons ("Sí", "Cancelar") do too.
    QTranslator qtTexts;
    if (qtTexts.load(QLocale(QLocale::Spanish), QStringLiteral("qtbase"), QStringLiteral("_"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(&qtTexts);
    const auto location = nubo::platform::AppFolderLocation::ofRunningProgram();
    nubo::app::Composition program(location.folder(), [location] { location.prepare(); });
    // "Abrir con Nubo" and the menu entry's %f pass one catalogue file.
    const QString catalogue = application.arguments().size() > 1
                                  ? QFileInfo(application.arguments().at(1)).absoluteFilePath()
                                  : QString();
    if (!program.start()) {
        // A later start ends at once; the running instance comes forward and opens the file.
        nubo::app::InstanceChannel::send(nubo::app::Composition::channelName(), catalogue);
        return 0;
    }
    if (!catalogue.isEmpty())
        program.openAtStart(catalogue);
    nubo::app::Composition::endProcess(application.exec());
}
