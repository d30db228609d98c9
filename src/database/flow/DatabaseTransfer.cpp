// The database's save and load loops.
#include "catalogue/Catalogue.h"
#include "catalogue/Colours.h"
#include "database/DatabaseReader.h"
#include "database/DatabaseWriter.h"
#include "database/flow/CatalogueTransfer.h"
#include "database/flow/TransferRun.h"
#include "platform/IDialogs.h"

#include <QSaveFile>

namespace nubo::database {

using catalogue::colours::kRed;

// A database field holds at most DatabaseWriter::kMaxText characters, and folders on Linux are
// often longer: such a row is named before anything is written, and the old file stays.
bool CatalogueTransfer::refuseTooLongForDatabase(const QList<CatalogueRecord>& rows,
                                                 const QString& path)
{
    for (qsizetype r = 0; r < rows.size(); ++r) {
        for (int field = 0; field < 4; ++field) {
            const qsizetype length = rows[r].field(field).size();
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
    TransferRun run(*this);
    if (!run)
        return TransferOutcome::Failed;
    const QList<CatalogueRecord> rows = records();
    if (refuseTooLongForDatabase(rows, path))
        return TransferOutcome::Failed;
    if (const QString refusal = targetRefusal(path); !refusal.isEmpty())
        return fileFailed(path, refusal);
    // Written beside the target and renamed over it only once complete.
    QSaveFile file(path);
    DatabaseWriter writer;
    if (!file.open(QIODevice::WriteOnly))
        return fileFailed(path, file.errorString());
    if (!writer.begin(&file, header()))
        return fileFailed(path, writer.errorString());
    const int n = int(rows.size());
    run.showProgress(n);
    int i = 1;
    bool cancelled = false;
    for (; i <= n; ++i) {
        if (stopSeen()) {
            cancelled = true;
            break;
        }
        m_s.view.setProgress(i);
        if (!writer.addRow(rows[i - 1]))
            return fileFailed(path, writer.errorString());
    }
    if (m_exiting)
        return TransferOutcome::Failed; // the temporary file goes, the previous file stays
    // Kept: a cancelled save ends with the record begun at the cancel, stored empty.
    if (cancelled && !writer.addRow({}))
        return fileFailed(path, writer.errorString());
    if (!writer.finish())
        return fileFailed(path, writer.errorString());
    if (!file.commit())
        return fileFailed(path, file.errorString());
    run.hideProgress();
    // Normal end: the loop counter minus 1 (n); cancelled: the row where the cancel was seen.
    reportAdded(QString::number(cancelled ? i : i - 1), cancelled);
    return cancelled ? TransferOutcome::Cancelled : TransferOutcome::Done;
}

TransferOutcome CatalogueTransfer::LoadDatabaseIntoList(const QString& path)
{
    TransferRun run(*this);
    if (!run)
        return TransferOutcome::Failed;
    DatabaseReader reader;
    if (!reader.open(path)) {
        showStatus(QStringLiteral("Imposible Acceder a ") + path, 7000, kRed);
        return TransferOutcome::Failed;
    }
    QList<CatalogueRecord> records;
    CatalogueRecord record;
    while (reader.next(record))
        records.append(record);
    run.showProgress(int(records.size()));
    qsizetype added = 0;
    bool cancelled = false;
    // The last record first: this order is intended and kept.
    for (qsizetype k = records.size() - 1; k >= 0; --k) {
        if (stopSeen()) {
            cancelled = true;
            break;
        }
        appendRow(records[k]);
        m_s.view.setProgress(int(++added));
    }
    run.hideProgress();
    return showLoaded(added, path, cancelled);
}

} // namespace nubo::database
