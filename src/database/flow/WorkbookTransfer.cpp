// The workbook's save and load loops.
#include "catalogue/Catalogue.h"
#include "catalogue/Colours.h"
#include "core/Options.h"
#include "database/WorkbookReader.h"
#include "database/WorkbookWriter.h"
#include "database/flow/CatalogueTransfer.h"
#include "database/flow/TransferRun.h"

#include <cstdlib>

namespace nubo::database {

using catalogue::colours::kWhite;

TransferOutcome CatalogueTransfer::SaveListToWorkbook(const QString& path)
{
    TransferRun run(*this);
    if (!run)
        return TransferOutcome::Failed;
    if (const QString refusal = targetRefusal(path); !refusal.isEmpty())
        return fileFailed(path, refusal);
    const QList<CatalogueRecord> rows = records();
    const int n = int(rows.size());
    std::optional<SheetStyle> style;
    if (m_s.options.isOn(core::Option::ConfigExcel))
        style = m_s.sheet.style;
    WorkbookWriter writer;
    if (!writer.begin(path, {m_s.sheet.sheetName, header(), style}, n))
        return workbookSaveFailed(path, writer.errorString());
    run.showProgress(n);
    int r = 3; // the sheet row; list row r - 2
    bool cancelled = false;
    for (; r <= n + 2; ++r) {
        if (stopSeen()) {
            cancelled = true;
            break;
        }
        m_s.view.setProgress(r - 2);
        if (!writer.addRow(rows[r - 3]))
            return workbookSaveFailed(path, writer.errorString());
    }
    if (m_exiting)
        return TransferOutcome::Failed; // nothing was written: the previous file stays
    if (cancelled)
        writer.dropStyle(); // a cancelled save is still written, unstyled
    if (!writer.finish())
        return fileFailed(path, writer.errorString());
    run.hideProgress();
    // The count is the row counter at loop exit minus 3: the rows written.
    reportAdded(QString::number(r - 3), cancelled);
    return cancelled ? TransferOutcome::Cancelled : TransferOutcome::Done;
}

TransferOutcome CatalogueTransfer::LoadWorkbookIntoList(const QString& path)
{
    TransferRun run(*this);
    if (!run)
        return TransferOutcome::Failed;
    WorkbookReader reader;
    if (!reader.open(path))
        return workbookLoadFailed(path);
    const QString name = reader.sheetName();
    m_s.sheet.sheetName = name;
    emit sheetNameChanged(name);
    showStatus(QStringLiteral("Comprobando formato ") + name + QStringLiteral("..."), 10000,
               kWhite);
    // No blank after the point, kept as the program has always written it.
    showStatus(QStringLiteral("El formato de la base es correcto, buscando el final de ") + name +
                   QStringLiteral(".Por favor Espere..."),
               10000, kWhite);
    const qint64 lastRow = reader.lastRow();
    showStatus(QStringLiteral("Se estan agregando ") + QString::number(lastRow - 2) +
                   QStringLiteral(" archivos desde ") + path,
               10000, kWhite);
    run.showProgress(int(std::abs(lastRow - 2)));
    qsizetype added = 0;
    bool cancelled = false;
    for (qint64 r = 3; r <= lastRow; ++r) {
        if (stopSeen()) {
            cancelled = true;
            break;
        }
        const CatalogueRecord row = reader.record(quint32(r));
        if (!row.nombre.isEmpty()) { // rows without a name are skipped silently
            appendRow(row);
            ++added;
        }
        m_s.view.setProgress(int(r - 2));
    }
    run.hideProgress();
    return showLoaded(added, path, cancelled);
}

} // namespace nubo::database
