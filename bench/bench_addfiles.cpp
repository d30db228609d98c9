// SPDX-License-Identifier: GPL-3.0-or-later
// Adds 30,000 existing files through AddFileToList into the shown list window and prints the
// time, once in a plain loop and once letting window events run after every file, as a search
// does. With --grab FILE it also saves a picture of the window with its rows.
#include "catalogue/ui/ListWindow.h"
#include "core/Options.h"
#include "platform/fakes/FakeDialogs.h"
#include "platform/fakes/FakeShell.h"
#include "platform/linux/LinuxPlatform.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QItemSelectionModel>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTreeView>

#include <algorithm>
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

// How a file reaches the list: looked up first (a dropped file), or as a folder listing
// already said it is a file (a search).
enum class Way { LookedUp, Listed };

double addAll(nubo::catalogue::ListWindow& list, const QStringList& paths, bool letEventsRun,
              Way way = Way::LookedUp)
{
    list.catalogue.list().clear();
    QElapsedTimer clock;
    clock.start();
    for (const QString& p : paths) {
        QString path = p;
        if (way == Way::Listed)
            list.catalogue.AddKnownFileToList(path);
        else
            list.catalogue.AddFileToList(path);
        if (letEventsRun)
            QCoreApplication::processEvents();
    }
    list.catalogue.list().flush();
    QCoreApplication::processEvents(); // the last layout and repaint
    return static_cast<double>(clock.nsecsElapsed()) / 1e9;
}

// Waits for the opening growth, shows a message, and saves the window's picture.
bool saveGrab(nubo::catalogue::ListWindow& list, const QString& file)
{
    list.catalogue.setGroupName(QStringLiteral("Discos de prueba"));
    list.catalogue.ShowInfoMessage(QStringLiteral("La Búsqueda ha finalizado con exito"), 10000,
                                   0x0000FF);
    QElapsedTimer wait;
    wait.start();
    while (wait.elapsed() < 1500)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    return list.form.grab().save(file);
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
    core::Options options;
    catalogue::ListWindow list({app, *services.drives, dialogs, shell, options});
    list.form.show();
    QCoreApplication::processEvents();

    const double plain = addAll(list, paths, false);
    double listed = 1e9;
    for (int i = 0; i < 5; ++i)
        listed = std::min(listed, addAll(list, paths, false, Way::Listed));
    const double withEvents = addAll(list, paths, true);
    // Ten thousand separate rows selected in the view, deleted at once by the menu entry.
    list.catalogue.list().flush();
    auto* view = list.form.findChild<QTreeView*>(QStringLiteral("ListView1"));
    QItemSelection rows;
    for (int r = 0; r < kFiles; r += 3)
        rows.select(view->model()->index(r, 0), view->model()->index(r, 4));
    view->selectionModel()->select(rows, QItemSelectionModel::Select);
    QElapsedTimer clock;
    clock.start();
    list.form.findChild<QAction*>(QStringLiteral("Eli"))->trigger();
    QCoreApplication::processEvents();
    const double deletion = static_cast<double>(clock.nsecsElapsed()) / 1e9;
    QTextStream out(stdout);
    out << "AddFileToList x " << kFiles << " into the shown list window:\n"
        << "  plain loop, each file looked up: " << plain << " s\n"
        << "  plain loop, files from a folder listing (best of 5): " << listed
        << " s (goal: under 0.05 s)\n"
        << "  events run after each file: " << withEvents << " s\n"
        << "DeleteSelectedRows with 10,000 separate rows selected: " << deletion << " s\n"
        << "  rows left: " << list.catalogue.list().rowCount() << "\n";
    out.flush();
    const qsizetype grab = application.arguments().indexOf(QStringLiteral("--grab"));
    if (grab > 0 && grab + 1 < application.arguments().size())
        return saveGrab(list, application.arguments().at(grab + 1)) ? 0 : 1;
    return 0;
}
