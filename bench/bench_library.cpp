// SPDX-License-Identifier: GPL-3.0-or-later
// The library against reading every file: N catalogues of 3,000 rows (default 100) indexed with
// "nubo-cli library add" (goal: 1,000 catalogues in 60 s), then a selective word and a common
// one asked of "nubo-cli library find" (goal: 50 ms with the process, 5 x faster than
// "nubo-cli find" over the same files), best of 5, with the peak memory /usr/bin/time reports
// when it is there (goal: 100 MB); the selective word also against plocate over the same names
// as files (goal: within 2 x).
#include "database/CatalogueFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <limits>

namespace {

using namespace nubo;

constexpr int kRowsPerCatalogue = 3000;

database::CatalogueRecord recordAt(int i)
{
    static const QStringList artists = {
        QStringLiteral("Mercedes Quiroga"), QStringLiteral("Luna Sur"),
        QStringLiteral("Los del Río Chico"), QStringLiteral("Ñu Trío")};
    database::CatalogueRecord r{QStringLiteral("pista%1 canción").arg(i, 7, 10, QLatin1Char('0')),
                                QStringLiteral("/Música/Álbum %1/").arg(i / 12),
                                QStringLiteral("Disco %1").arg(i / kRowsPerCatalogue),
                                i % 3 ? QStringLiteral("MP3") : QStringLiteral("FLAC")};
    r.details.size = 3'000'000 + i % 5000;
    r.details.artist = artists.at(i % artists.size());
    r.details.title = QStringLiteral("Tema %1").arg(i % 400);
    r.details.duration = 120 + i % 300;
    return r;
}

struct Timed
{
    double ms = std::numeric_limits<double>::max();
    QByteArray out;
    QByteArray err;
};

Timed bestOf(int runs, const QString& program, const QStringList& args)
{
    Timed best;
    for (int r = 0; r < runs; ++r) {
        QProcess process;
        QElapsedTimer timer;
        timer.start();
        process.start(program, args);
        process.waitForFinished(-1);
        const double ms = double(timer.nsecsElapsed()) / 1e6;
        if (ms < best.ms)
            best = {ms, process.readAllStandardOutput(), process.readAllStandardError()};
    }
    return best;
}

void writeCatalogues(const QString& folder, int count)
{
    for (int c = 0; c < count; ++c) {
        QList<database::CatalogueRecord> rows;
        rows.reserve(kRowsPerCatalogue);
        for (int i = 0; i < kRowsPerCatalogue; ++i)
            rows.append(recordAt(c * kRowsPerCatalogue + i));
        const QString name =
            QStringLiteral("c%1.%2").arg(c, 4, 10, QLatin1Char('0')).arg(c % 2 ? "mdb" : "xls");
        const auto saved =
            database::saveCatalogue(folder + QLatin1Char('/') + name, {},
                                    {rows.size(), [&](qsizetype i) { return rows.at(i); }});
        if (!saved.ok)
            qFatal("%s", qPrintable(saved.reason));
    }
}

// The same names as files in folders, indexed by updatedb, asked of plocate: the reference a
// selective word is measured against (goal: within 2 x), when both programs are installed.
void comparePlocate(const QString& root, int count, const QString& word, double libraryMs)
{
    const QString updatedb = QStandardPaths::findExecutable(QStringLiteral("updatedb"));
    const QString plocate = QStandardPaths::findExecutable(QStringLiteral("plocate"));
    if (updatedb.isEmpty() || plocate.isEmpty()) {
        std::printf("plocate: not installed, no comparison\n");
        return;
    }
    const QString tree = root + QStringLiteral("/arbol");
    for (int i = 0; i < count * kRowsPerCatalogue; ++i) {
        const database::CatalogueRecord r = recordAt(i);
        // At most 100 albums a folder: updatedb keeps a descriptor open per folder entry.
        const QString folder = tree + QLatin1Char('/') + QString::number(i / 1200) + r.direccion;
        if (i % 12 == 0)
            QDir().mkpath(folder);
        QFile file(folder + r.nombre + QLatin1Char('.') + r.formato.toLower());
        if (!file.open(QIODevice::WriteOnly))
            qFatal("%s", qPrintable(file.fileName()));
    }
    const QString db = root + QStringLiteral("/plocate.db");
    // Nothing pruned: the tree lies in the temporary folder, which the system-wide settings skip.
    const Timed indexed = bestOf(1, updatedb,
                                 {"-U", tree, "-o", db, "-l", "no", "--prunepaths", "", "--prunefs",
                                  "", "--prune-bind-mounts", "no"});
    const Timed found = bestOf(5, plocate, {"-d", db, "-i", word});
    if (!indexed.err.isEmpty() || !found.err.isEmpty())
        std::printf("updatedb, plocate: %s %s\n", indexed.err.constData(), found.err.constData());
    std::printf("\"%s\": plocate %8.1f ms, %lld lines; library find is %.1f x plocate\n",
                qPrintable(word), found.ms, qlonglong(found.out.count('\n')),
                libraryMs / std::max(found.ms, 0.001));
}

double compare(const QString& cli, const QString& library, const QString& folder,
               const QString& word)
{
    const Timed indexed = bestOf(5, cli, {"--library", library, "library", "find", word});
    const Timed files = bestOf(3, cli, {"find", word, folder});
    std::printf("\"%s\": library find %8.1f ms, %lld lines; nubo-cli find %8.1f ms, %lld lines; "
                "%.1f x faster%s\n",
                qPrintable(word), indexed.ms, qlonglong(indexed.out.count('\n')), files.ms,
                qlonglong(files.out.count('\n')), files.ms / std::max(indexed.ms, 0.001),
                indexed.out.count('\n') == files.out.count('\n') ? "" : "  LINES DIFFER");
    const QString time = QStandardPaths::findExecutable(QStringLiteral("time"));
    if (!time.isEmpty()) {
        const Timed memory =
            bestOf(1, time, {"-f", "%M", cli, "--library", library, "library", "find", word});
        std::printf("  peak memory of library find: %s kB\n",
                    memory.err.trimmed().split('\n').last().constData());
    }
    return indexed.ms;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const int count = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 100;
    QTemporaryDir dir;
    const QString folder = dir.filePath(QStringLiteral("catalogues"));
    QDir().mkpath(folder);
    QElapsedTimer timer;
    timer.start();
    writeCatalogues(folder, count);
    std::printf("%d catalogues of %d rows written in %.1f s\n", count, kRowsPerCatalogue,
                double(timer.elapsed()) / 1000);
    const QString cli = QStringLiteral(NUBO_APP_DIR "/nubo-cli");
    const QString library = dir.filePath(QStringLiteral("biblioteca.sqlite"));
    const Timed added = bestOf(1, cli, {"--library", library, "library", "add", folder});
    std::printf("library add: %d catalogues (%d rows) in %.1f s (goal for 1,000: 60 s)\n", count,
                count * kRowsPerCatalogue, added.ms / 1000);
    const QString selective =
        QStringLiteral("pista%1").arg(count * kRowsPerCatalogue / 2, 7, 10, QLatin1Char('0'));
    const double selectiveMs = compare(cli, library, folder, selective);
    (void)compare(cli, library, folder, QStringLiteral("artista:quiroga tema 12"));
    // A file per row: only for the smaller collections.
    if (count <= 100)
        comparePlocate(dir.path(), count, selective, selectiveMs);
    return 0;
}
