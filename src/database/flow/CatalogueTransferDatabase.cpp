// SPDX-License-Identifier: GPL-3.0-or-later
// The database's save and load, over the row loops of CatalogueFiles.
#include "catalogue/Catalogue.h"
#include "catalogue/Colours.h"
#include "database/CatalogueFiles.h"
#include "database/DatabaseWriter.h"
#include "database/flow/CatalogueTransfer.h"
#include "database/flow/SavedListRows.h"
#include "database/flow/TransferRun.h"
#include "platform/IDialogs.h"

namespace nubo::database {

using catalogue::colours::kRed;

// A database field holds at most DatabaseWriter::kMaxText characters, and folders on Linux are
// often longer: such a row is named before anything is written, and the old file stays.
bool CatalogueTransfer::refuseTooLongForDatabase(const CatalogueRowSource& rows,
                                                 const QString& path)
{
    for (qsizetype r = 0; r < rows.count; ++r) {
        const CatalogueRecord record = rows.row(r);
        for (int field = 0; field < 4; ++field) {
            const qsizetype length = record.field(field).size();
            if (length <= DatabaseWriter::kMaxText)
                continue;
            const QString row = QString::number(r + 1);
            const QString limit = QString::number(DatabaseWriter::kMaxText);
            m_s.dialogs.messageBox(
                QStringLiteral("La fila %1 de la lista tiene en %2 un texto de %3 caracteres, y "
                               "una base de datos de Access (.mdb) guarda como mucho %4 por "
                               "campo.\n\nNo se ha escrito nada en %5. Guarde la lista como "
                               "libro de Excel (.xls), que admite 32.767 caracteres por celda.")
                    .arg(row, header()[field], QString::number(length), limit, path),
                QStringLiteral("Error al guardar archivo"));
            showStatus(QStringLiteral("No se ha guardado %1: la fila %2 tiene en %3 más de %4 "
                                      "caracteres; guarde la lista como .xls")
                           .arg(path, row, header()[field], limit),
                       10000, kRed);
            return true;
        }
    }
    return false;
}

TransferOutcome CatalogueTransfer::SaveListToDatabase(const QString& path)
{
    if (!detailsReadForSave())
        return TransferOutcome::Failed;
    TransferRun run(*this);
    if (!run)
        return TransferOutcome::Failed;
    const SavedListRows listRows(m_s.catalogue.list());
    const CatalogueRowSource rows = listRows.source();
    if (refuseTooLongForDatabase(rows, path))
        return TransferOutcome::Failed;
    if (const QString refusal = targetRefusal(path); !refusal.isEmpty())
        return fileFailed(path, refusal);
    CatalogueSaveOptions options;
    options.header = header();
    // Kept: a cancelled save ends with the record begun at the cancel, stored empty.
    options.stopLeavesEmptyRecord = true;
    options.discs = m_s.catalogue.discs().records();
    const SaveOutcome saved = saveDatabase(path, options, rows, saveHooks(run));
    if (saved.discarded && m_exiting)
        return TransferOutcome::Failed; // the temporary file goes, the previous file stays
    if (!saved.ok && !saved.discarded)
        return fileFailed(path, saved.reason);
    run.hideProgress();
    if (saved.discarded)
        return cancelledOverExisting(path, saved.written + 1);
    // A cancelled save counts the row where the cancel was seen, the one stored empty.
    reportAdded(QString::number(saved.stopped ? saved.written + 1 : saved.written), saved.stopped);
    if (const QString note = shortenedText(saved); !note.isEmpty() && !saved.stopped)
        showStatus(QStringLiteral("Agregados %1 archivos a la base de datos. %2")
                       .arg(QString::number(saved.written), note),
                   15000, catalogue::colours::kWhite);
    return saved.stopped ? TransferOutcome::Cancelled : TransferOutcome::Done;
}

TransferOutcome CatalogueTransfer::LoadDatabaseIntoList(const QString& path)
{
    TransferRun run(*this);
    if (!run)
        return TransferOutcome::Failed;
    LoadHooks hooks = loadHooks();
    hooks.opened = [&run](const QString&, qint64 rows) { run.showProgress(int(rows)); };
    const LoadOutcome loaded = readDatabase(path, hooks);
    if (!loaded.ok) {
        showStatus(
            QStringLiteral("Imposible Acceder a ") + path +
                (loaded.reason.isEmpty() ? QString() : QStringLiteral("\nCausa: ") + loaded.reason),
            7000, kRed);
        return TransferOutcome::Failed;
    }
    return loadRead(run, path, loaded);
}

} // namespace nubo::database
