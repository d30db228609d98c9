// SPDX-License-Identifier: GPL-3.0-or-later
// nubo-cli scan --tags over 10,000 tagged MP3 files against a plain scan of the same tree
// (goal: under 3 s warm). Usage: bench_tags [FOLDER]  (a temporary folder by default).
#include "BenchTiming.h"
#include "TaggedTree.h"
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int kFiles = 10000;
constexpr int kFolders = 100;

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir temporary;
    const QString root = argc > 1 ? QString::fromLocal8Bit(argv[1]) : temporary.path();
    if (!QDir(root).exists(QStringLiteral("disco000")) &&
        !nubo::bench::buildTaggedTree(root, kFiles, kFolders)) {
        std::fprintf(stderr, "bench_tags: cannot build the tree in %s\n", qPrintable(root));
        return 1;
    }
    const QString cli = QStringLiteral(NUBO_APP_DIR "/nubo-cli");
    qint64 plainRows = 0, tagRows = 0;
    const double plainMs = nubo::bench::bestOf(
        3, 1,
        [&] {
            return nubo::bench::printedLines(cli, {QStringLiteral("scan"), root});
        },
        plainRows);
    const double tagsMs = nubo::bench::bestOf(
        3, 1,
        [&] {
            return nubo::bench::printedLines(
                cli, {QStringLiteral("scan"), root, QStringLiteral("--tags")});
        },
        tagRows);
    std::printf("tree: %s (%d tagged MP3 files in %d folders)\n", qPrintable(root), kFiles,
                kFolders);
    std::printf("nubo-cli scan          %8.1f ms  %lld rows\n", plainMs, plainRows);
    std::printf("nubo-cli scan --tags   %8.1f ms  %lld rows   ratio %.2f (goal: under 3000 ms)\n",
                tagsMs, tagRows, tagsMs / plainMs);
    const bool met = tagsMs < 3000 && tagRows == kFiles;
    std::printf("%s\n", met ? "goal met" : "GOAL NOT MET");
    return met ? 0 : 1;
}
