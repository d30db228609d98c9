// The composition root: creates the services and windows and connects them.
#include "app/Composition.h"

#include <QApplication>
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
    application.setQuitOnLastWindowClosed(false);
    // The program speaks Spanish, so Qt's own buttons ("Sí", "Cancelar") do too.
    QTranslator qtTexts;
    if (qtTexts.load(QLocale(QLocale::Spanish), QStringLiteral("qtbase"), QStringLiteral("_"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(&qtTexts);
    nubo::app::Composition program;
    if (!program.start())
        return 0;
    // "Abrir con Nubo" and the menu entry's %f pass one catalogue file.
    if (application.arguments().size() > 1)
        program.openAtStart(application.arguments().at(1));
    return application.exec();
}
