// SPDX-License-Identifier: GPL-3.0-or-later
// Writes and reads 30,000 catalogue rows in each format and prints the times, then a workbook
// as full as a sheet holds (65,534 rows, every column filled, with disc records). With
// --rows-text FILE it also writes the rows as tab-separated text, for the other tools to take.
#include "database/CatalogueFiles.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <cstdio>

using namespace nubo::database;

namespace {

constexpr int kRows = 30000;

QList<CatalogueRecord> benchRows()
{
    QList<CatalogueRecord> rows;
    rows.reserve(kRows);
    for (int i = 0; i < kRows; ++i) {
        rows.append(
            {QStringLiteral("%1 - Canción número %2").arg(i % 40 + 1, 2, 10, QChar('0')).arg(i),
             QStringLiteral("/Música/Artista %1/Álbum %2/").arg(i / 400).arg(i / 12),
             QStringLiteral("Disco %1").arg(i / 700 + 1), QStringLiteral("MP3")});
    }
    return rows;
}

double seconds(const QElapsedTimer& timer)
{
    return double(timer.nsecsElapsed()) / 1e9;
}

constexpr int kFullSheetRows = 65534;

// Every column filled, tags repeated as a collection repeats them (an album's artist, genre and
// year on each of its tracks).
QList<CatalogueRecord> fullRows()
{
    QList<CatalogueRecord> rows;
    rows.reserve(kFullSheetRows);
    for (int i = 0; i < kFullSheetRows; ++i) {
        CatalogueRecord r{QStringLiteral("%1 - Canción número %2.mp3").arg(i % 12 + 1).arg(i),
                          QStringLiteral("/Música/Artista %1/Álbum %2/").arg(i / 400).arg(i / 12),
                          QStringLiteral("Disco %1").arg(i / 700 + 1), QStringLiteral("MP3")};
        nubo::core::FileDetails& d = r.details;
        d.size = 3'000'000 + qint64(i) * 7919 + (i % 50 == 0 ? 5'000'000'000 : 0);
        d.modified = 1'599'999'960 + qint64(i) * 60; // whole minutes, as the files keep them
        d.title = QStringLiteral("Canción número %1").arg(i);
        d.artist = QStringLiteral("Artista %1").arg(i / 400);
        d.album = QStringLiteral("Álbum %1").arg(i / 12);
        d.genre = QStringLiteral("Género %1").arg(i % 30);
        d.year = quint16(1950 + i / 12 % 70);
        d.track = quint16(i % 12 + 1);
        d.duration = 120 + i % 400;
        rows.append(std::move(r));
    }
    return rows;
}

QList<nubo::core::DiscRecord> fullDiscs()
{
    QList<nubo::core::DiscRecord> discs;
    for (int d = 1; d <= kFullSheetRows / 700 + 1; ++d)
        discs.append({QStringLiteral("Disco %1").arg(d), QStringLiteral("MUSICA_%1").arg(d),
                      nubo::core::serialText(quint32(d) * 0x1234567), QStringLiteral("UDF"),
                      4'700'000'000, 12'345'678, 1'700'000'040, QStringLiteral("/Música"),
                      QStringLiteral("*.*"), QStringLiteral("Estante %1").arg(d % 9),
                      QStringLiteral("Notas del disco %1").arg(d)});
    return discs;
}

// A full sheet saved and loaded; false when either failed or the rows did not come back.
bool benchFullWorkbook(const QString& path)
{
    const QList<CatalogueRecord> rows = fullRows();
    CatalogueSaveOptions options;
    options.discs = fullDiscs();
    QElapsedTimer timer;
    timer.start();
    const SaveOutcome saved = saveCatalogue(path, options, rowsOf(rows));
    const double write = seconds(timer);
    timer.restart();
    const auto loaded = loadCatalogue(path);
    const double read = seconds(timer);
    if (!saved.ok || !loaded || loaded->rows != rows || loaded->discs != options.discs) {
        std::fprintf(stderr, "full workbook: %s\n", qPrintable(saved.reason + loaded.reason()));
        return false;
    }
    std::printf("lista.xls, every column: write %.3f s, read %.3f s, %d rows, %lld discs, "
                "%lld bytes\n",
                write, read, kFullSheetRows, qint64(options.discs.size()),
                qint64(QFile(path).size()));
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Writes and reads 30,000 catalogue rows as a workbook and as a database and prints the "
        "times (goal: each under 0.3 s), then a full workbook sheet with every column."));
    parser.addHelpOption();
    const QCommandLineOption rowsText(
        QStringLiteral("rows-text"),
        QStringLiteral("Also write the rows as tab-separated text into <file>."),
        QStringLiteral("file"));
    parser.addOption(rowsText);
    parser.process(app);
    if (!parser.positionalArguments().isEmpty()) {
        std::fprintf(stderr, "bench_catalogue: unexpected argument; see --help\n");
        return 2;
    }
    const QList<CatalogueRecord> rows = benchRows();
    if (parser.isSet(rowsText)) {
        QFile text(parser.value(rowsText));
        if (!text.open(QIODevice::WriteOnly))
            return 2;
        QTextStream out(&text);
        for (const CatalogueRecord& r : rows)
            out << r.nombre << '\t' << r.direccion << '\t' << r.origen << '\t' << r.formato << '\n';
    }
    QTemporaryDir dir;
    const CatalogueRowSource source = rowsOf(rows);
    for (const char* name : {"lista.xls", "lista.mdb"}) {
        const QString path = dir.filePath(QString::fromLatin1(name));
        QElapsedTimer timer;
        timer.start();
        const SaveOutcome saved = saveCatalogue(path, {}, source);
        const double write = seconds(timer);
        timer.restart();
        const auto loaded = loadCatalogue(path);
        const double read = seconds(timer);
        if (!saved.ok || !loaded || loaded->rows.size() != kRows) {
            std::fprintf(stderr, "%s: %s\n", name, qPrintable(saved.reason + loaded.reason()));
            return 1;
        }
        std::printf("%s: write %.3f s, read %.3f s, %d rows, %lld bytes\n", name, write, read,
                    kRows, qint64(QFile(path).size()));
    }
    std::printf("goal: every write and read under 0.3 s\n");
    return benchFullWorkbook(dir.filePath(QStringLiteral("completa.xls"))) ? 0 : 1;
}
