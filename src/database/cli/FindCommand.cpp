// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/cli/FindCommand.h"

#include "catalogue/DetailKeyText.h"
#include "catalogue/FindWords.h"
#include "database/CatalogueFiles.h"
#include "database/cli/FlatField.h"

#include <QDirIterator>
#include <QFileInfo>

#include <algorithm>

namespace nubo::database::cli {
namespace {

using nubo::cli::CliIo;

const char* const kUsage = "uso: nubo-cli find [--count] TEXTO CATALOGO...\n";

const char* const kHelp =
    "Muestra las filas de los catálogos (.xls, .mdb o TSV de scan; las carpetas se recorren)\n"
    "que tienen todas las palabras de TEXTO, sin mirar mayúsculas ni acentos. Cada palabra\n"
    "se busca en NOMBRE, DIRECCION, ORIGEN, TITULO, ARTISTA, ALBUM, AÑO y GENERO.\n"
    "\n"
    "campo:palabra busca la palabra solo en la columna de ese nombre, escrito como su\n"
    "título y sin mirar mayúsculas ni acentos: artista:quiroga, año:1979 (o ano:1979),\n"
    "formato:flac, origen:disco. Sirve cualquier columna: NOMBRE, DIRECCION, ORIGEN,\n"
    "FORMATO, UNIDAD, TAMAÑO, FECHA, TITULO, ARTISTA, ALBUM, AÑO, PISTA, GENERO y DURACION.\n"
    "Un campo que no es el nombre de una columna (12:30, re:mix) se busca como palabra.\n"
    "\n"
    "Cada fila encontrada se escribe en una línea, separada por tabuladores: catálogo,\n"
    "NOMBRE, DIRECCION, ORIGEN, FORMATO, TITULO, ARTISTA, ALBUM, AÑO, PISTA, GENERO y\n"
    "DURACION (vacías las que el catálogo no tiene).\n"
    "\n"
    "  --count  escribe cuántas filas hay en cada catálogo\n"
    "\n"
    "Estado de salida: 0 con alguna fila, 1 sin ninguna o error de uso, 2 error de archivo.\n";

struct FindArguments
{
    QString text;
    QStringList catalogues;
    bool countOnly = false;
};

nubo::cli::Parsed<FindArguments> parse(const QStringList& args, CliIo& io)
{
    FindArguments parsed;
    QStringList plain;
    for (const QString& arg : args) {
        if (arg == QLatin1String("--help") || arg == QLatin1String("-h")) {
            io.out << kUsage << '\n' << kHelp;
            return nubo::cli::kOk;
        }
        if (arg == QLatin1String("--count"))
            parsed.countOnly = true;
        else
            plain.append(arg);
    }
    if (plain.size() < 2) {
        io.err << kUsage;
        return nubo::cli::kUsageError;
    }
    parsed.text = plain.takeFirst();
    parsed.catalogues = plain;
    return parsed;
}

// The catalogue, NOMBRE, DIRECCION, ORIGEN and FORMATO, then the tag columns, so scripts that
// read the first five fields keep reading them.
void printMatch(CliIo& io, const QString& shownPath, const catalogue::CatalogueRow& row)
{
    using catalogue::Column;
    io.out << shownPath;
    for (const Column column : {Column::Nombre, Column::Direccion, Column::Origen, Column::Formato,
                                Column::Titulo, Column::Artista, Column::Album, Column::Ano,
                                Column::Pista, Column::Genero, Column::Duracion})
        io.out << '\t' << flat(row.displayText(column));
    io.out << '\n';
}

int find(const QStringList& args, CliIo& io)
{
    const auto parsedOrStatus = parse(args, io);
    if (const auto* status = std::get_if<nubo::cli::ExitStatus>(&parsedOrStatus))
        return *status;
    const FindArguments& parsed = std::get<FindArguments>(parsedOrStatus);
    const catalogue::FindWords words(parsed.text);
    catalogue::DetailKeyText numbers;
    qint64 matches = 0;
    bool unreadable = false;
    for (const QString& path : cataloguesIn(parsed.catalogues, true)) {
        qint64 found = 0;
        const QString shownPath = flat(path);
        const LoadOutcome outcome = readAnyCatalogue(
            path, {{}, {}, [&](CatalogueRecord&& r) {
                       const catalogue::CatalogueRow row{
                           std::move(r.nombre),           std::move(r.direccion),
                           std::move(r.origen),           std::move(r.formato),
                           catalogue::unknownDriveText(), std::move(r.details)};
                       if (!words.matches(catalogue::FindWords::keyOf(row, numbers)))
                           return;
                       ++found;
                       if (!parsed.countOnly)
                           printMatch(io, shownPath, row);
                   }});
        if (!outcome.ok) {
            io.err << "nubo-cli find: no se puede leer " << path << ": " << outcome.reason << '\n';
            unreadable = true;
            continue;
        }
        if (parsed.countOnly)
            io.out << shownPath << '\t' << found << '\n';
        matches += found;
        if (outcome.damaged) {
            io.err << "nubo-cli find: " << damageText(path, outcome) << '\n';
            unreadable = true;
        }
    }
    if (unreadable)
        return nubo::cli::kFileError;
    return matches > 0 ? nubo::cli::kOk : nubo::cli::kUsageError;
}

} // namespace

nubo::cli::CliCommand findCommand()
{
    return {QStringLiteral("find"), QStringLiteral("find [--count] TEXTO CATALOGO..."),
            QStringLiteral(
                "Muestra las filas de catálogos .xls, .mdb o TSV de scan (o de las carpetas) "
                "que tienen todas las palabras de TEXTO en NOMBRE, DIRECCION, ORIGEN o las "
                "etiquetas, sin mirar mayúsculas ni acentos; campo:palabra la busca solo en "
                "esa columna (artista:quiroga, año:1979, formato:flac); escribe también las "
                "etiquetas de cada fila; --count: cuántas por catálogo; estado 1 si no hay "
                "ninguna; find --help lo explica"),
            find};
}

} // namespace nubo::database::cli
