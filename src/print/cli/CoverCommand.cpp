// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/cli/CoverCommand.h"

#include "database/CatalogueFiles.h"
#include "print/CoverQuestion.h"
#include "print/paint/CoverPainter.h"

#include <QGuiApplication>

#include <cstring>

namespace nubo::print::cli {

namespace {

using nubo::cli::CliIo;

const char* const kUsage = "uso: nubo-cli cover CATALOGO [--columns N] --output ARCHIVO.pdf\n";

struct CoverArguments
{
    QString catalogue;
    QString columns = QStringLiteral("6");
    QString output;
};

nubo::cli::Parsed<CoverArguments> parse(const QStringList& args, CliIo& io)
{
    CoverArguments parsed;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString& arg = args[i];
        if (arg == QLatin1String("--columns") || arg == QLatin1String("--output")) {
            if (i + 1 >= args.size()) {
                io.err << "nubo-cli cover: falta el valor de " << arg << '\n' << kUsage;
                return nubo::cli::kUsageError;
            }
            (arg == QLatin1String("--columns") ? parsed.columns : parsed.output) = args[++i];
        } else if (arg.startsWith(QLatin1String("--")) || !parsed.catalogue.isEmpty()) {
            io.err << "nubo-cli cover: argumento de más: " << arg << '\n' << kUsage;
            return nubo::cli::kUsageError;
        } else {
            parsed.catalogue = arg;
        }
    }
    if (parsed.catalogue.isEmpty() || parsed.output.isEmpty()) {
        io.err << kUsage;
        return nubo::cli::kUsageError;
    }
    return parsed;
}

Outcome<QList<CoverRow>> readRows(const QString& path)
{
    QList<CoverRow> rows;
    const database::LoadOutcome outcome =
        database::readAnyCatalogue(path, {{}, {}, [&rows](database::CatalogueRecord&& r) {
                                              rows.append({r.nombre, r.origen});
                                          }});
    if (!outcome.ok)
        return Failure{outcome.reason};
    return rows;
}

int cover(const QStringList& args, CliIo& io)
{
    const auto parsed = parse(args, io);
    if (const auto* status = std::get_if<nubo::cli::ExitStatus>(&parsed))
        return *status;
    const CoverArguments& a = std::get<CoverArguments>(parsed);
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        io.err << "nubo-cli cover: dibujar la tapa necesita QGuiApplication\n";
        return nubo::cli::kUsageError;
    }
    const auto rows = readRows(a.catalogue);
    if (!rows) {
        io.err << "nubo-cli: " << rows.reason() << '\n';
        return nubo::cli::kFileError;
    }
    QStringList names;
    for (const CoverRow& row : *rows)
        names << row.name;
    const auto grid = coverGridFor(a.columns, names);
    if (!grid) {
        io.err << "nubo-cli cover: "
               << QString(grid.reason()).replace(QLatin1String("\n\n"), QLatin1String(" ")) << '\n';
        return nubo::cli::kUsageError;
    }
    if (!writeCoverPdf(a.output, *rows, grid->columns)) {
        io.err << "nubo-cli cover: no se pudo escribir " << a.output << '\n';
        return nubo::cli::kFileError;
    }
    return nubo::cli::kOk;
}

} // namespace

nubo::cli::CliCommand coverCommand()
{
    return {QStringLiteral("cover"),
            QStringLiteral("cover CATALOGO [--columns N] --output ARCHIVO.pdf"),
            QStringLiteral("Dibuja la lista de un catálogo (.xls, .mdb o TSV de scan) como tapa "
                           "de CD de 12 x 12 cm en un PDF"),
            cover};
}

bool coverNeedsGui(int argc, char** argv)
{
    return argc > 1 && std::strcmp(argv[1], "cover") == 0;
}

} // namespace nubo::print::cli
