// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/cli/LibraryReports.h"

#include "database/cli/FlatField.h"
#include "library/LibraryDuplicates.h"
#include "library/LibraryTotals.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace nubo::library::cli {
namespace {

using catalogue::GroupTotals;
using database::cli::flat;
using nubo::cli::CliIo;

QJsonObject jsonOf(const GroupTotals& totals)
{
    return {{QStringLiteral("archivos"), totals.files},
            {QStringLiteral("bytes"), totals.bytes},
            {QStringLiteral("segundos"), totals.seconds}};
}

void writeLine(CliIo& io, const char* kind, const QString& first, const QString& second,
               const GroupTotals& totals)
{
    io.out << kind << '\t' << flat(first) << '\t' << flat(second) << '\t' << totals.files << '\t'
           << totals.bytes << '\t' << catalogue::DiscTotals::durationText(totals.seconds) << '\n';
}

void printJson(const LibraryTotals& totals, CliIo& io)
{
    QJsonArray discs;
    for (auto it = totals.discs().cbegin(); it != totals.discs().cend(); ++it) {
        QJsonObject disc = jsonOf(it.value());
        disc.insert(QStringLiteral("catalogo"), it.key().first);
        disc.insert(QStringLiteral("origen"), it.key().second);
        discs.append(disc);
    }
    QJsonObject groups;
    for (auto it = totals.groups().cbegin(); it != totals.groups().cend(); ++it)
        groups.insert(it.key(), jsonOf(it.value()));
    QJsonObject formats;
    for (auto it = totals.formats().cbegin(); it != totals.formats().cend(); ++it)
        formats.insert(it.key(), jsonOf(it.value()));
    const QJsonObject all{{QStringLiteral("total"), jsonOf(totals.overall())},
                          {QStringLiteral("discos"), discs},
                          {QStringLiteral("grupos"), groups},
                          {QStringLiteral("formatos"), formats}};
    io.out << QString::fromUtf8(QJsonDocument(all).toJson(QJsonDocument::Indented));
}

} // namespace

int printDuplicates(LibraryIndex& index, CliIo& io)
{
    LibraryDuplicates duplicates;
    const Outcome<qint64> read =
        index.forEachRow([&](const QString& path, const catalogue::CatalogueRow& row) {
            duplicates.add(path, row);
        });
    if (!read) {
        io.err << "nubo-cli library: " << read.reason() << '\n';
        return nubo::cli::kFileError;
    }
    const QList<DuplicateSet> sets = duplicates.sets();
    for (const DuplicateSet& set : sets) {
        io.out << flat(set.copies.first().row.nombre) << '\t'
               << LibraryDuplicates::ruleText(set.rule) << '\n';
        for (const DuplicateCopy& copy : set.copies) {
            using catalogue::Column;
            io.out << '\t' << flat(copy.catalogue);
            for (const Column column : {Column::Origen, Column::Direccion, Column::Nombre,
                                        Column::Formato, Column::Tamano, Column::Duracion})
                io.out << '\t' << flat(copy.row.displayText(column));
            io.out << '\n';
        }
    }
    return sets.isEmpty() ? nubo::cli::kUsageError : nubo::cli::kOk;
}

int printStats(LibraryIndex& index, CliIo& io, bool json)
{
    LibraryTotals totals;
    const Outcome<qint64> read = index.forEachRow(
        [&](const QString& path, const catalogue::CatalogueRow& row) { totals.add(path, row); });
    if (!read) {
        io.err << "nubo-cli library: " << read.reason() << '\n';
        return nubo::cli::kFileError;
    }
    if (json) {
        printJson(totals, io);
        return nubo::cli::kOk;
    }
    for (auto it = totals.discs().cbegin(); it != totals.discs().cend(); ++it)
        writeLine(io, "disco", it.key().first, it.key().second, it.value());
    for (auto it = totals.groups().cbegin(); it != totals.groups().cend(); ++it)
        writeLine(io, "grupo", it.key(), {}, it.value());
    for (auto it = totals.formats().cbegin(); it != totals.formats().cend(); ++it)
        writeLine(io, "formato", it.key(), {}, it.value());
    writeLine(io, "total", {}, {}, totals.overall());
    return nubo::cli::kOk;
}

} // namespace nubo::library::cli
