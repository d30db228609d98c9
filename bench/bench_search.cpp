// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the folder search against find(1) on one warm tree of 100,000 files in 5,000
// folders, 30,000 of them matching "*.mp3": the search into the shown list window, and
// nubo-cli scan. Usage: bench_search [FOLDER]  (a temporary folder by default).
#include "app/ListWindowSearch.h"
#include "catalogue/ui/ListWindow.h"
#include "core/Options.h"
#include "platform/fakes/FakeDialogs.h"
#include "platform/fakes/FakeShell.h"
#include "platform/linux/LinuxPlatform.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <functional>

using namespace nubo;

namespace {

constexpr int kTop = 50, kSub = 99, kFilesPerFolder = 20, kSongsPerFolder = 6;

bool buildTree(const QString& root)
{
    QByteArray body(64, 'x');
    const auto fill = [&](const QString& folder) {
        if (!QDir().mkpath(folder))
            return false;
        for (int f = 0; f < kFilesPerFolder; ++f) {
            const QString name = f < kSongsPerFolder ? QStringLiteral("tema%1.mp3").arg(f)
                                                     : QStringLiteral("nota%1.txt").arg(f);
            QFile file(folder + QLatin1Char('/') + name);
            if (!file.open(QIODevice::WriteOnly) || file.write(body) != body.size())
                return false;
        }
        return true;
    };
    for (int t = 0; t < kTop; ++t) {
        const QString top = root + QStringLiteral("/grupo%1").arg(t);
        if (!fill(top))
            return false;
        for (int s = 0; s < kSub; ++s) {
            if (!fill(top + QStringLiteral("/disco%1").arg(s)))
                return false;
        }
    }
    return true;
}

// The best of five runs, in milliseconds; count receives the last run's result.
double bestOf5(const std::function<qint64()>& run, qint64& count)
{
    double best = 1e18;
    for (int i = 0; i < 5; ++i) {
        QElapsedTimer timer;
        timer.start();
        count = run();
        best = qMin(best, double(timer.nsecsElapsed()) / 1e6);
    }
    return best;
}

qint64 runProcess(const QString& program, const QStringList& args)
{
    QProcess process;
    process.start(program, args);
    process.waitForFinished(-1);
    return process.readAllStandardOutput().count('\n');
}

qint64 searchInListWindow(const platform::PlatformServices& services, const QString& root)
{
    const platform::AppFolder app(QStringLiteral(NUBO_APP_DIR));
    platform::FakeDialogs dialogs;
    platform::FakeShell shell;
    core::Options options;
    catalogue::ListWindow list({app, *services.drives, dialogs, shell, options});
    app::ListWindowSearch joined(list, {app, dialogs, *services.drives, *services.volumes,
                                        *services.directories, *services.tray});
    search::SearchWindows& search = joined.windows();
    list.form.show();
    search.form3.setFolderPath(root);
    search.form3.setMaskText(QStringLiteral("*.mp3"));
    list.form.findChild<QPushButton*>(QStringLiteral("Command1"))->click();
    QCoreApplication::processEvents();
    return list.catalogue.list().count();
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Times the list window's search and nubo-cli scan against find over a tree of 100,000 "
        "files (goals: window within 3 x find, scan --sin-detalles within 1.5 x find; the scan "
        "that reads every file's tags is shown beside them)."));
    parser.addHelpOption();
    const QCommandLineOption tree(
        QStringLiteral("tree"),
        QStringLiteral("Build the tree in <folder>, or reuse the one already there, instead of "
                       "in a temporary folder."),
        QStringLiteral("folder"));
    parser.addOption(tree);
    parser.process(application);
    if (!parser.positionalArguments().isEmpty()) {
        std::fprintf(stderr, "bench_search: unexpected argument; see --help\n");
        return 2;
    }
    QTemporaryDir temporary;
    const QString root = parser.isSet(tree) ? parser.value(tree) : temporary.path();
    if (!QFileInfo::exists(root + QStringLiteral("/grupo0")) && !buildTree(root)) {
        std::fprintf(stderr, "bench_search: cannot build the tree in %s\n", qPrintable(root));
        return 2;
    }
    const QString cli = QStringLiteral(NUBO_APP_DIR "/nubo-cli");
    const platform::PlatformServices services = platform::createLinuxPlatform();
    qint64 found = 0, window = 0, scanned = 0;
    runProcess(QStringLiteral("find"), {root, QStringLiteral("-iname"), QStringLiteral("*.mp3")});
    const double findMs = bestOf5(
        [&] {
            return runProcess(QStringLiteral("find"),
                              {root, QStringLiteral("-iname"), QStringLiteral("*.mp3")});
        },
        found);
    const double windowMs = bestOf5([&] { return searchInListWindow(services, root); }, window);
    const double scanMs = bestOf5(
        [&] {
            return runProcess(cli,
                              {QStringLiteral("scan"), QStringLiteral("--sin-detalles"), root});
        },
        scanned);
    qint64 detailed = 0;
    const double detailsMs = bestOf5(
        [&] {
            return runProcess(cli, {QStringLiteral("scan"), root});
        },
        detailed);

    double load[3] = {};
    if (getloadavg(load, 3) == 3)
        std::printf("load average: %.2f %.2f %.2f\n", load[0], load[1], load[2]);
    std::printf("tree: %s (100000 files, 5000 folders, 30000 *.mp3)\n", qPrintable(root));
    std::printf("find -iname '*.mp3'   %8.1f ms  %lld names\n", findMs, found);
    std::printf("list window search    %8.1f ms  %lld rows   ratio %.2f (goal <= 3)\n", windowMs,
                window, windowMs / findMs);
    std::printf("nubo-cli scan --sin-detalles %8.1f ms  %lld rows   ratio %.2f (goal <= 1.5)\n",
                scanMs, scanned, scanMs / findMs);
    std::printf("nubo-cli scan (every file's tags read) %8.1f ms  %lld rows   ratio %.2f\n",
                detailsMs, detailed, detailsMs / findMs);
    const bool met =
        windowMs <= 3 * findMs && scanMs <= 1.5 * findMs && window == found && scanned == found;
    std::printf("%s\n", met ? "goals met" : "GOALS NOT MET");
    return met ? 0 : 1;
}
