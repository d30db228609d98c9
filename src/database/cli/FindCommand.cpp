// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/cli/FindCommand.h"

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

bool isCatalogueName(const QString& name)
{
    return catalogueFormatOf(name) || name.endsWith(QLatin1String(".tsv"), Qt::CaseInsensitive);
}

// The catalogues named: files as they are, folders' catalogues below them in name order.
QStringList cataloguesIn(const QStringList& named)
{
    QStringList files;
    for (const QString& path : named) {
        if (!QFileInfo(path).isDir()) {
            files.append(path);
            continue;
        }
        QStringList found;
        QDirIterator it(path, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString file = it.next();
            if (isCatalogueName(file))
                found.append(file);
        }
        std::sort(found.begin(), found.end());
        files += found;
    }
    return files;
}

int find(const QStringList& args, CliIo& io)
{
    const auto parsedOrStatus = parse(args, io);
    if (const auto* status = std::get_if<nubo::cli::ExitStatus>(&parsedOrStatus))
        return *status;
    const FindArguments& parsed = std::get<FindArguments>(parsedOrStatus);
    const catalogue::FindWords words(parsed.text);
    qint64 matches = 0;
    bool unreadable = false;
    for (const QString& path : cataloguesIn(parsed.catalogues)) {
        qint64 found = 0;
        const QString shownPath = flat(path);
        const LoadOutcome outcome = readAnyCatalogue(
            path,
            {{}, {}, [&](CatalogueRecord&& r) {
                 if (!words.matches(catalogue::FindWords::keyOf(r.nombre, r.direccion, r.origen)))
                     return;
                 ++found;
                 if (!parsed.countOnly)
                     io.out << shownPath << '\t' << flat(r.nombre) << '\t' << flat(r.direccion)
                            << '\t' << flat(r.origen) << '\t' << flat(r.formato) << '\n';
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
                "cuyo NOMBRE, DIRECCION u ORIGEN tienen todas las palabras de TEXTO, "
                "sin mirar mayúsculas ni acentos; --count: cuántas por catálogo; estado 1 si "
                "no hay ninguna"),
            find};
}

} // namespace nubo::database::cli
