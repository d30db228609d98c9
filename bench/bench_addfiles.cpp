// Adds 30,000 existing files through AddFileToList into the shown list window and prints the
// time, once in a plain loop and once letting window events run after every file, as a search
// does.
#include "app/Options.h"
#include "catalogue/ui/ListWindow.h"
#include "platform/fakes/FakeDialogs.h"
#include "platform/fakes/FakeShell.h"
#include "platform/linux/LinuxPlatform.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdio>

namespace {

constexpr int kFiles = 30000;
constexpr int kPerFolder = 500;

QStringList makeTree(const QString& root)
{
    QStringList paths;
    paths.reserve(kFiles);
    for (int i = 0; i < kFiles; ++i) {
        const QString folder = root + QStringLiteral("/Disco%1").arg(i / kPerFolder);
        if (i % kPerFolder == 0)
            QDir().mkpath(folder);
        const QString path = folder + QStringLiteral("/tema %1.mp3").arg(i);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            return {};
        paths.append(path);
    }
    return paths;
}

double addAll(nubo::catalogue::ListWindow& list, const QStringList& paths, bool letEventsRun)
{
    list.catalogue.list().clear();
    QElapsedTimer clock;
    clock.start();
    for (const QString& p : paths) {
        QString path = p;
        list.catalogue.AddFileToList(path);
        if (letEventsRun)
            QCoreApplication::processEvents();
    }
    list.catalogue.list().flush();
    QCoreApplication::processEvents(); // the last layout and repaint
    return static_cast<double>(clock.nsecsElapsed()) / 1e9;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    using namespace nubo;

    QTemporaryDir dir;
    const QStringList paths = makeTree(dir.path());
    if (paths.size() != kFiles) {
        std::fputs("bench_addfiles: could not create the files\n", stderr);
        return 1;
    }
    const platform::AppFolder app(dir.path());
    platform::PlatformServices services = platform::createLinuxPlatform();
    platform::FakeDialogs dialogs;
    platform::FakeShell shell;
    app::Options options;
    catalogue::ListWindow list({app, *services.drives, dialogs, shell, options});
    list.form.show();
    QCoreApplication::processEvents();

    const double plain = addAll(list, paths, false);
    const double withEvents = addAll(list, paths, true);
    QTextStream out(stdout);
    out << "AddFileToList x " << kFiles << " into the shown list window:\n"
        << "  plain loop:                " << plain << " s\n"
        << "  events run after each file: " << withEvents << " s\n"
        << "  rows shown: " << list.catalogue.list().rowCount() << "\n";
    return 0;
}
