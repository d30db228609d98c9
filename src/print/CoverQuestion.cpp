// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/CoverQuestion.h"

#include "platform/IDialogs.h"
#include "print/CoverColumns.h"

namespace nubo::print {

namespace {

QString errorText(const core::RuntimeError& error)
{
    return QStringLiteral("Ha ocurrido el Error : ") + QString::number(error.number) +
           QStringLiteral(": ") + error.description +
           QStringLiteral("\n\nLa cantidad de columnas debe ser un número entero entre 1 y ") +
           QString::number(kMaxColumns) + QLatin1Char('.');
}

} // namespace

Outcome<CoverGrid> coverGridFor(const QString& answer, const QStringList& names)
{
    const ColumnCount count = parseColumnCount(answer);
    std::optional<core::RuntimeError> failure = count.error;
    NamesPerColumn perColumn;
    if (!failure) {
        // Zero fails at the division, as the count of names per column needs it.
        perColumn = namesPerColumn(static_cast<int>(names.size()), count.n);
        failure = perColumn.error;
    }
    if (!failure)
        failure = checkColumnsFit(count.n);
    if (failure)
        return Failure{errorText(*failure)};
    return CoverGrid{count.n, perColumn.r, columnHeaders(count.n),
                     fillColumns(names, count.n, perColumn.r)};
}

std::optional<CoverGrid> askCoverGrid(platform::IDialogs& dialogs, const QStringList& names)
{
    const std::optional<QString> answer =
        dialogs.inputBox(QStringLiteral("Ingrese la cantidad de columnas por tapa!"),
                         QStringLiteral("defina un numero entre 2 y 8"), QStringLiteral("6"));
    if (!answer)
        return std::nullopt;
    Outcome<CoverGrid> grid = coverGridFor(*answer, names);
    if (!grid) {
        dialogs.messageBox(grid.reason(), QStringLiteral("Imprimir tapa"));
        return std::nullopt;
    }
    return std::move(grid).value();
}

} // namespace nubo::print
