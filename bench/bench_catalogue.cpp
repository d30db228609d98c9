// SPDX-License-Identifier: GPL-3.0-or-later
// Writes and reads 30,000 catalogue rows in each format and prints the times. With
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

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Writes and reads 30,000 catalogue rows as a workbook and as a database and prints the "
        "times (goal: each under 0.3 s)."));
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
    return 0;
}
