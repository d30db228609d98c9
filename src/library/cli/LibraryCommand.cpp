// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/cli/LibraryCommand.h"

#include "database/CatalogueFiles.h"
#include "database/cli/FlatField.h"
#include "library/LibraryIndex.h"
#include "library/cli/LibraryReports.h"

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

namespace nubo::library::cli {
namespace {

using nubo::cli::CliIo;

const char* const kUsage =
    "uso: nubo-cli [--library ARCHIVO] library add|remove|rebuild|list|find|dups|stats ...\n"
    "  library add CATALOGO|CARPETA...   añade o vuelve a leer catálogos\n"
    "  library remove CATALOGO...        los quita de la biblioteca (no los borra)\n"
    "  library rebuild                   vuelve a leer todos los catálogos\n"
    "  library list                      los catálogos, sus filas y los que faltan\n"
    "  library find [--count] TEXTO      las filas que encuentra la barra de búsqueda\n"
    "  library dups                      el mismo archivo en más de un disco\n"
    "  library stats [--json]            archivos, bytes y duración por disco, grupo y formato\n";

int reportRefresh(const RefreshReport& report, CliIo& io)
{
    for (const QString& reason : report.unreadable)
        io.err << "nubo-cli library: " << reason << '\n';
    return report.unreadable.isEmpty() ? nubo::cli::kOk : nubo::cli::kFileError;
}

int add(LibraryIndex& index, const QStringList& named, CliIo& io)
{
    if (named.isEmpty()) {
        io.err << kUsage;
        return nubo::cli::kUsageError;
    }
    int status = nubo::cli::kOk;
    for (const QString& path : database::cataloguesIn(named, false)) {
        const Outcome<qint64> added = index.add(path);
        if (!added) {
            io.err << "nubo-cli library: " << added.reason() << '\n';
            status = nubo::cli::kFileError;
            continue;
        }
        io.out << database::cli::flat(QFileInfo(path).absoluteFilePath()) << '\t' << *added << '\n';
    }
    return status;
}

int remove(LibraryIndex& index, const QStringList& named, CliIo& io)
{
    bool any = false;
    for (const QString& path : named) {
        const Outcome<bool> removed = index.remove(path);
        if (!removed) {
            io.err << "nubo-cli library: " << removed.reason() << '\n';
            return nubo::cli::kFileError;
        }
        if (!*removed)
            io.err << "nubo-cli library: " << path << " no está en la biblioteca\n";
        any = any || *removed;
    }
    return any ? nubo::cli::kOk : nubo::cli::kUsageError;
}

int list(LibraryIndex& index, CliIo& io)
{
    const Outcome<QList<LibraryCatalogue>> held = index.catalogues();
    if (!held) {
        io.err << "nubo-cli library: " << held.reason() << '\n';
        return nubo::cli::kFileError;
    }
    for (const LibraryCatalogue& c : *held)
        io.out << database::cli::flat(c.path) << '\t' << database::cli::flat(c.name) << '\t'
               << c.rows << (c.missing ? "\tfalta" : "") << '\n';
    return held->isEmpty() ? nubo::cli::kUsageError : nubo::cli::kOk;
}

// As "nubo-cli find" writes a match, so both answers compare line for line.
int find(LibraryIndex& index, const QStringList& args, CliIo& io)
{
    QStringList words = args;
    const bool countOnly = words.removeAll(QStringLiteral("--count")) > 0;
    if (words.size() != 1) {
        io.err << kUsage;
        return nubo::cli::kUsageError;
    }
    using catalogue::Column;
    QMap<QString, qint64> counts;
    const Outcome<qint64> found =
        index.find(words.first(), [&](const QString& path, const catalogue::CatalogueRow& row) {
            ++counts[path];
            if (countOnly)
                return;
            io.out << database::cli::flat(path);
            for (const Column column :
                 {Column::Nombre, Column::Direccion, Column::Origen, Column::Formato,
                  Column::Titulo, Column::Artista, Column::Album, Column::Ano, Column::Pista,
                  Column::Genero, Column::Duracion})
                io.out << '\t' << database::cli::flat(row.displayText(column));
            io.out << '\n';
        });
    if (!found) {
        io.err << "nubo-cli library: " << found.reason() << '\n';
        return nubo::cli::kFileError;
    }
    for (auto it = counts.cbegin(); countOnly && it != counts.cend(); ++it)
        io.out << database::cli::flat(it.key()) << '\t' << it.value() << '\n';
    return *found > 0 ? nubo::cli::kOk : nubo::cli::kUsageError;
}

int dispatch(LibraryIndex& index, const QString& order, const QStringList& rest, CliIo& io)
{
    if (order == QLatin1String("add"))
        return add(index, rest, io);
    if (order == QLatin1String("remove"))
        return remove(index, rest, io);
    if (order == QLatin1String("rebuild")) {
        const Outcome<RefreshReport> done = index.rebuild();
        if (!done) {
            io.err << "nubo-cli library: " << done.reason() << '\n';
            return nubo::cli::kFileError;
        }
        return reportRefresh(*done, io);
    }
    // Every question is answered from the catalogues as they are now.
    const Outcome<RefreshReport> fresh = index.refreshStale();
    if (!fresh) {
        io.err << "nubo-cli library: " << fresh.reason() << '\n';
        return nubo::cli::kFileError;
    }
    const int refreshed = reportRefresh(*fresh, io);
    int status = nubo::cli::kUsageError;
    if (order == QLatin1String("list"))
        status = list(index, io);
    else if (order == QLatin1String("find"))
        status = find(index, rest, io);
    else if (order == QLatin1String("dups"))
        status = printDuplicates(index, io);
    else if (order == QLatin1String("stats"))
        status = printStats(index, io, rest.contains(QStringLiteral("--json")));
    else
        io.err << kUsage;
    return refreshed == nubo::cli::kOk || status == nubo::cli::kUsageError ? status : refreshed;
}

int run(const QString& defaultLibrary, const QStringList& args, CliIo& io)
{
    QStringList rest = args;
    QString libraryPath = takeLibraryOption(rest);
    if (libraryPath.isEmpty())
        libraryPath = defaultLibrary.isEmpty() ? LibraryIndex::defaultPath() : defaultLibrary;
    if (rest.isEmpty() || rest.first() == QLatin1String("--help") ||
        rest.first() == QLatin1String("-h")) {
        (rest.isEmpty() ? io.err : io.out) << kUsage;
        return rest.isEmpty() ? nubo::cli::kUsageError : nubo::cli::kOk;
    }
    LibraryIndex index(libraryPath);
    if (const Outcome<> opened = index.open(); !opened) {
        io.err << "nubo-cli library: " << opened.reason() << '\n';
        return nubo::cli::kFileError;
    }
    const QString order = rest.takeFirst();
    return dispatch(index, order, rest, io);
}

} // namespace

QString takeLibraryOption(QStringList& arguments)
{
    if (arguments.size() < 2 || arguments.first() != QLatin1String("--library"))
        return {};
    arguments.removeFirst();
    return arguments.takeFirst();
}

nubo::cli::CliCommand libraryCommand(const QString& libraryPath)
{
    return {
        QStringLiteral("library"),
        QStringLiteral("library add|remove|rebuild|list|find|dups|stats ..."),
        QStringLiteral("Guarda en una biblioteca (--library ARCHIVO, o la de "
                       "$XDG_DATA_HOME/nubo) todos los catálogos y busca en ellos a la vez, "
                       "como la barra de búsqueda; dups: el mismo archivo en más de un disco; "
                       "stats: archivos, bytes y duración por disco y formato; library --help "
                       "lo explica"),
        [libraryPath](const QStringList& args, CliIo& io) { return run(libraryPath, args, io); }};
}

} // namespace nubo::library::cli
