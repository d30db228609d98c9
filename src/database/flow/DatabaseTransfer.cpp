// The database's save and load loops.
#include "catalogue/Catalogue.h"
#include "catalogue/Colours.h"
#include "database/DatabaseReader.h"
#include "database/DatabaseWriter.h"
#include "database/flow/CatalogueTransfer.h"
#include "database/flow/TransferRun.h"

#include <QSaveFile>

namespace nubo::database {

void CatalogueTransfer::SaveListToDatabase(const QString& path)
{
    TransferRun run(*this);
    if (!run)
        return;
    if (!targetWritable(path))
        return fileFailed(path);
    // Written beside the target and renamed over it only once complete.
    QSaveFile file(path);
    DatabaseWriter writer;
    if (!file.open(QIODevice::WriteOnly) || !writer.begin(&file, header()))
        return fileFailed(path);
    const int n = m_s.catalogue.list().count();
    run.showProgress(n);
    int i = 1;
    bool cancelled = false;
    for (; i <= n; ++i) {
        if (cancelSeen()) {
            cancelled = true;
            break;
        }
        m_s.view.setProgress(i);
        if (!writer.addRow(record(i - 1)))
            return fileFailed(path);
    }
    // Kept: a cancelled save ends with the record begun at the cancel, stored empty.
    if (cancelled && !writer.addRow({}))
        return fileFailed(path);
    if (!writer.finish() || !file.commit())
        return fileFailed(path);
    run.hideProgress();
    // Normal end: the loop counter minus 1 (n); cancelled: the row where the cancel was seen.
    reportAdded(QString::number(cancelled ? i : i - 1), cancelled);
}

void CatalogueTransfer::LoadDatabaseIntoList(const QString& path)
{
    TransferRun run(*this);
    if (!run)
        return;
    DatabaseReader reader;
    if (!reader.open(path)) {
        showStatus(QStringLiteral("Imposible Acceder a ") + path, 7000, catalogue::colours::kRed);
        return;
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
        if (cancelSeen()) {
            cancelled = true;
            break;
        }
        appendRow(records[k]);
        m_s.view.setProgress(int(++added));
    }
    run.hideProgress();
    showLoaded(added, path, cancelled);
}

} // namespace nubo::database
