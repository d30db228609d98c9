// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/cli/DatabaseCommands.h"

#include "database/CatalogueFiles.h"
#include "database/cli/CatalogueListing.h"
#include "database/cli/FindCommand.h"

#include <QFileInfo>

namespace nubo::database::cli {
namespace {

using nubo::cli::CliIo;

std::optional<LoadedCatalogue> load(const QString& path, CliIo& io)
{
    if (!catalogueFormatOf(path)) {
        io.err << "nubo-cli: extensión desconocida (se espera .xls o .mdb): " << path << '\n';
        return std::nullopt;
    }
    auto loaded = loadCatalogue(path);
    if (!loaded) {
        io.err << "nubo-cli: " << loaded.reason() << '\n';
        return std::nullopt;
    }
    return std::move(loaded).value();
}

// "--discos" wins over "--todo": the disc records have no row columns.
std::optional<Listing> listingOf(QStringList& args)
{
    const bool discs = args.removeAll(QStringLiteral("--discos")) > 0;
    const bool everyColumn = args.removeAll(QStringLiteral("--todo")) > 0;
    if (args.size() != 1 || args.first().startsWith(QLatin1String("--")))
        return std::nullopt;
    return discs ? Listing::Discs : everyColumn ? Listing::EveryColumn : Listing::Rows;
}

int show(const QStringList& arguments, CliIo& io)
{
    QStringList args = arguments;
    const std::optional<Listing> listing = listingOf(args);
    if (!listing) {
        io.err << "uso: nubo-cli show [--todo | --discos] ARCHIVO\n";
        return nubo::cli::kUsageError;
    }
    if (!catalogueFormatOf(args.first())) {
        io.err << "nubo-cli: extensión desconocida (se espera .xls o .mdb): " << args.first()
               << '\n';
        return nubo::cli::kUsageError;
    }
    const auto loaded = load(args.first(), io);
    if (!loaded)
        return nubo::cli::kFileError;
    printCatalogue(*loaded, *listing, io.out);
    if (!loaded->skipped.isEmpty())
        io.err << "nubo-cli: " << loaded->skipped << '\n';
    if (!loaded->damage.isEmpty()) {
        io.err << "nubo-cli: " << loaded->damage << '\n';
        return nubo::cli::kFileError;
    }
    return nubo::cli::kOk;
}

int convert(const QStringList& args, CliIo& io)
{
    if (args.size() != 2) {
        io.err << "uso: nubo-cli convert ENTRADA SALIDA\n";
        return nubo::cli::kUsageError;
    }
    for (const QString& path : args) {
        if (!catalogueFormatOf(path)) {
            io.err << "nubo-cli: extensión desconocida (se espera .xls o .mdb): " << path << '\n';
            return nubo::cli::kUsageError;
        }
    }
    const auto loaded = load(args.at(0), io);
    if (!loaded)
        return nubo::cli::kFileError;
    if (!loaded->skipped.isEmpty())
        io.err << "nubo-cli: " << loaded->skipped << '\n';
    // The rows of a damaged catalogue are saved only as a new file: an existing one could be
    // the only other copy of what the damage hides.
    const bool damaged = !loaded->damage.isEmpty();
    if (damaged) {
        io.err << "nubo-cli: " << loaded->damage << '\n';
        if (QFileInfo::exists(args.at(1)) || QFileInfo(args.at(1)).isSymLink()) {
            io.err << "nubo-cli: no se reemplaza " << args.at(1)
                   << " con las filas de un catálogo dañado; elija un archivo nuevo\n";
            return nubo::cli::kFileError;
        }
    }
    CatalogueSaveOptions options;
    // Opening a workbook names the sheet of the next one saved.
    if (catalogueFormatOf(args.at(0)) == CatalogueFormat::Workbook)
        options.sheetName = loaded->name;
    options.discs = loaded->discs;
    const SaveOutcome outcome = saveCatalogue(args.at(1), options, rowsOf(loaded->rows));
    if (!outcome.ok) {
        io.err << "nubo-cli: no se puede guardar " << args.at(1) << ": " << outcome.reason << '\n';
        return nubo::cli::kFileError;
    }
    return damaged ? nubo::cli::kFileError : nubo::cli::kOk;
}

} // namespace

QList<nubo::cli::CliCommand> databaseCommands()
{
    return {
        {QStringLiteral("show"), QStringLiteral("show [--todo | --discos] ARCHIVO"),
         QStringLiteral("Muestra las filas de un catálogo .xls o .mdb como las cargaría la lista "
                        "(NOMBRE, DIRECCION, ORIGEN, FORMATO, UNIDAD); --todo añade TAMAÑO, "
                        "FECHA, TITULO, ARTISTA, ALBUM, AÑO, PISTA, GENERO y DURACION; --discos "
                        "muestra en su lugar los discos (ORIGEN, ETIQUETA, SERIE, SISTEMA, "
                        "CAPACIDAD, LIBRE, FECHA, CARPETA, MASCARA, UBICACION, NOTAS)"),
         show},
        {QStringLiteral("convert"), QStringLiteral("convert ENTRADA SALIDA"),
         QStringLiteral("Carga un catálogo y lo guarda, con todas sus columnas y sus discos, en "
                        "el formato de la extensión de SALIDA"),
         convert},
        findCommand(),
    };
}

} // namespace nubo::database::cli
