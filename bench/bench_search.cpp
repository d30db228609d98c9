// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the folder search against find(1) on one warm tree of 100,000 files in 5,000
// folders, 30,000 of them matching "*.mp3": the search into the shown list window, and
// nubo-cli scan. Usage: bench_search [FOLDER]  (a temporary folder by default).
#include "BenchTiming.h"
#include "SearchedListWindow.h"
#include "core/Options.h"
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

qint64 searchInListWindow(const platform::PlatformServices& services, const QString& root)
{
    bench::SearchedListWindow window(services, root);
    window.search();
    QCoreApplication::processEvents();
    return window.list.catalogue.list().count();
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
    bench::printedLines(QStringLiteral("find"),
                        {root, QStringLiteral("-iname"), QStringLiteral("*.mp3")});
    const double findMs = bench::bestOf(
        5, 0,
        [&] {
            return bench::printedLines(QStringLiteral("find"),
                                       {root, QStringLiteral("-iname"), QStringLiteral("*.mp3")});
        },
        found);
    const double windowMs = bench::bestOf(
        5, 0, [&] { return searchInListWindow(services, root); }, window);
    const double scanMs = bench::bestOf(
        5, 0,
        [&] {
            return bench::printedLines(
                cli, {QStringLiteral("scan"), QStringLiteral("--sin-detalles"), root});
        },
        scanned);
    qint64 detailed = 0;
    const double detailsMs = bench::bestOf(
        5, 0,
        [&] {
            return bench::printedLines(cli, {QStringLiteral("scan"), root});
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
