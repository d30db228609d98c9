// SPDX-License-Identifier: GPL-3.0-or-later
// The workbook's save and load, over the row loops of CatalogueFiles.
#include "catalogue/Catalogue.h"
#include "catalogue/Colours.h"
#include "core/Options.h"
#include "database/CatalogueFiles.h"
#include "database/WorkbookSurvey.h"
#include "database/flow/CatalogueTransfer.h"
#include "database/flow/SavedListRows.h"
#include "database/flow/TransferRun.h"
#include "platform/IDialogs.h"

#include <cstdlib>

namespace nubo::database {

using catalogue::colours::kBlue;
using catalogue::colours::kWhite;

TransferOutcome CatalogueTransfer::SaveListToWorkbook(const QString& path)
{
    if (!detailsReadForSave())
        return TransferOutcome::Failed;
    TransferRun run(*this);
    if (!run)
        return TransferOutcome::Failed;
    if (const QString refusal = targetRefusal(path); !refusal.isEmpty())
        return fileFailed(path, refusal);
    if (!mayDropWorkbookExtras(path))
        return TransferOutcome::Failed;
    const SavedListRows listRows(m_s.catalogue.list());
    const CatalogueRowSource rows = listRows.source();
    CatalogueSaveOptions options{header(), m_s.sheet.sheetName, std::nullopt};
    options.discs = m_s.catalogue.discs().records();
    if (m_s.options.isOn(core::Option::ConfigExcel))
        options.style = m_s.sheet.style;
    const SaveOutcome saved = saveWorkbook(path, options, rows, saveHooks(run));
    if (saved.discarded && m_exiting)
        return TransferOutcome::Failed; // nothing was written: the previous file stays
    if (!saved.ok && !saved.discarded && saved.failedAt == SaveStage::Finish)
        return fileFailed(path, saved.reason);
    if (!saved.ok && !saved.discarded)
        return workbookSaveFailed(path, saved.reason);
    run.hideProgress();
    if (saved.discarded)
        return cancelledOverExisting(path, saved.written);
    reportAdded(QString::number(saved.written), saved.stopped);
    return saved.stopped ? TransferOutcome::Cancelled : TransferOutcome::Done;
}

// A workbook kept by hand may hold sheets or columns a save does not write again: they are
// named, and the file is replaced only when the user agrees.
bool CatalogueTransfer::mayDropWorkbookExtras(const QString& path)
{
    const std::optional<WorkbookExtras> extras = surveyWorkbook(path);
    if (!extras || extras->isEmpty())
        return true;
    QStringList parts;
    for (const QString& sheet : extras->sheets)
        parts.append(QStringLiteral("hoja %1").arg(sheet));
    for (const ExtraColumn& column : extras->columns)
        parts.append(column.caption.isEmpty()
                         ? QStringLiteral("columna %1").arg(column.number)
                         : QStringLiteral("columna %1: %2").arg(column.number).arg(column.caption));
    const auto answer = m_s.dialogs.messageBox(
        QStringLiteral("El libro %1 contiene hojas o columnas que Nubo no guarda (%2). Si lo "
                       "guarda, se perderán.\n\n¿Desea continuar?")
            .arg(path, parts.join(QStringLiteral("; "))),
        QStringLiteral("Guardar lista"), platform::MessageButtons::YesNo,
        platform::MessageIcon::Exclamation);
    if (answer == platform::MessageAnswer::Yes)
        return true;
    showStatus(QStringLiteral("La lista no se guardará"), 5000, kBlue);
    return false;
}

// The sheet name goes into the sheet settings, and the status line follows the steps of the
// opening, which all show at once.
void CatalogueTransfer::announceWorkbook(const QString& path, const QString& name, qint64 rows)
{
    m_s.sheet.sheetName = name;
    emit sheetNameChanged(name);
    showStatus(QStringLiteral("Comprobando formato ") + name + QStringLiteral("..."), 10000,
               kWhite);
    // No blank after the point, kept as the program has always written it.
    showStatus(QStringLiteral("El formato de la base es correcto, buscando el final de ") + name +
                   QStringLiteral(".Por favor Espere..."),
               10000, kWhite);
    showStatus(QStringLiteral("Se estan agregando ") + QString::number(rows) +
                   QStringLiteral(" archivos desde ") + path,
               10000, kWhite);
}

TransferOutcome CatalogueTransfer::LoadWorkbookIntoList(const QString& path)
{
    TransferRun run(*this);
    if (!run)
        return TransferOutcome::Failed;
    LoadHooks hooks = loadHooks();
    hooks.opened = [&](const QString& name, qint64 rows) {
        announceWorkbook(path, name, rows);
        run.showProgress(int(std::abs(rows)));
    };
    const LoadOutcome loaded = readWorkbook(path, hooks);
    if (!loaded.ok)
        return workbookLoadFailed(path, loaded.reason);
    return loadRead(run, path, loaded);
}

} // namespace nubo::database
