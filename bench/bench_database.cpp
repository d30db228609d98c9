// SPDX-License-Identifier: GPL-3.0-or-later
// 1,000,000 catalogue rows with every column filled, saved to and loaded from a database as the
// list window does it: a save takes the list's rows and writes them, a load reads the file and
// appends each record to a catalogue list. Each step runs in a child process of its own, which
// reports its time and its peak memory (goal: each step under 3 s and 600 MB).
#include "catalogue/CatalogueList.h"
#include "database/CatalogueFiles.h"
#include "database/flow/SavedListRows.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <sys/resource.h>

using namespace nubo;
using namespace nubo::database;

namespace {

constexpr int kRows = 1000000;
constexpr qint64 kPastFourGiB = qint64(5) << 30;

// Rows as a collection of albums gives them: twelve tracks an album, thirty albums an artist.
catalogue::CatalogueRow benchRow(int i)
{
    static const QStringList genres = {QStringLiteral("Zamba"), QStringLiteral("Rock"),
                                       QStringLiteral("Clásica"), QStringLiteral("Jazz")};
    catalogue::CatalogueRow row;
    row.nombre = QStringLiteral("%1 - Canción número %2").arg(i % 12 + 1, 2, 10, QChar('0')).arg(i);
    row.direccion = QStringLiteral("/Música/Artista %1/Álbum %2/").arg(i / 360).arg(i / 12);
    row.origen = QStringLiteral("Disco %1").arg(i / 3000 + 1);
    row.formato = QStringLiteral("MP3");
    row.unidad = QStringLiteral("NN");
    row.details = {i % 10 == 0 ? kPastFourGiB + i : 3000000 + qint64(i) * 17,
                   1500000000 + qint64(i) * 60,
                   QStringLiteral("Canción número %1").arg(i),
                   QStringLiteral("Artista %1").arg(i / 360),
                   QStringLiteral("Álbum %1").arg(i / 12),
                   genres.at(i / 360 % genres.size()),
                   quint16(1950 + i / 360 % 70),
                   quint16(i % 12 + 1),
                   qint32(120 + i % 400)};
    return row;
}

void fill(catalogue::CatalogueList& list)
{
    for (int i = 0; i < kRows; ++i)
        list.appendAtBottom(benchRow(i));
    list.flush();
}

double peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return double(usage.ru_maxrss) / 1024.0;
}

// Processor seconds so far, user and system: on a busy machine the clock time exceeds them.
double cpuSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) {
        return double(t.tv_sec) + double(t.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// The save: the list's rows read as the save flow reads them, and written.
int save(const QString& path)
{
    catalogue::CatalogueList list;
    fill(list);
    const double before = peakMegabytes();
    const double cpu = cpuSeconds();
    QElapsedTimer timer;
    timer.start();
    const SavedListRows rows(list);
    const SaveOutcome saved = saveDatabase(path, {}, rows.source());
    const double elapsed = double(timer.nsecsElapsed()) / 1e9;
    if (!saved.ok || saved.written != kRows)
        return 1;
    std::printf("save: %.2f s (%.2f s of processor), peak %.0f MB (the list alone %.0f MB), %lld "
                "bytes\n",
                elapsed, cpuSeconds() - cpu, peakMegabytes(), before, qint64(QFile(path).size()));
    return 0;
}

// The load: each record appended to the list as the load flow appends it.
int load(const QString& path)
{
    catalogue::CatalogueList list;
    const double cpu = cpuSeconds();
    QElapsedTimer timer;
    timer.start();
    LoadHooks hooks;
    hooks.row = [&list](CatalogueRecord&& r) {
        list.appendAtBottom(
            {r.nombre, r.direccion, r.origen, r.formato, QStringLiteral("NN"), r.details});
    };
    const LoadOutcome loaded = readDatabase(path, hooks);
    list.flush();
    const double elapsed = double(timer.nsecsElapsed()) / 1e9;
    if (!loaded.ok || loaded.damaged || list.count() != kRows || loaded.skipped.count != 0 ||
        list.row(0).details != benchRow(kRows - 1).details)
        return 1;
    std::printf("load: %.2f s (%.2f s of processor), peak %.0f MB\n", elapsed, cpuSeconds() - cpu,
                peakMegabytes());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc == 3 && qstrcmp(argv[1], "save") == 0)
        return save(QString::fromLocal8Bit(argv[2]));
    if (argc == 3 && qstrcmp(argv[1], "load") == 0)
        return load(QString::fromLocal8Bit(argv[2]));
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("millon.mdb"));
    for (const char* step : {"save", "load"}) {
        QProcess child;
        child.setProcessChannelMode(QProcess::ForwardedChannels);
        child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(step), path});
        if (!child.waitForFinished(-1) || child.exitCode() != 0) {
            std::fprintf(stderr, "bench_database: the %s step failed\n", step);
            return 1;
        }
    }
    std::printf("goal: save and load each under 3 s, peak memory under 600 MB\n");
    return 0;
}
