// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/CatalogueRecord.h"
#include "database/SheetSettings.h"

#include <QList>
#include <QObject>

namespace nubo::core {
class ActivityLog;
class Options;
} // namespace nubo::core

namespace nubo::catalogue {
class Catalogue;
}

namespace nubo::platform {
class IDialogs;
}

namespace nubo::database {

class ITransferView;
class TransferRun;
struct CatalogueRowSource;
struct LoadHooks;
struct LoadOutcome;
struct SaveHooks;

// How a save or load ended: every row written or read; stopped by the cancel flag (a save to a
// new name still leaves a file with the rows written so far, a load keeps the rows read); or
// nothing done (failed, refused, cancelled over an existing file, or stopped because the
// program ends): the previous file untouched. A damaged file's load is Failed too, though the
// rows it read stay in the list.
enum class TransferOutcome { Done, Cancelled, Failed };

// The services a catalogue save or load reports to.
struct TransferServices
{
    catalogue::Catalogue& catalogue;
    ITransferView& view;
    platform::IDialogs& dialogs;
    core::ActivityLog& log;
    const core::Options& options;
    SheetSettings& sheet;
};

// Writes the catalogue list into a workbook or database and appends one's rows to it, row by
// row, letting window events run before each row so that the cancel flag can stop the loop.
// A save writes the rows as they stood when it started; while it runs the catalogue is busy.
class CatalogueTransfer final : public QObject
{
    Q_OBJECT
public:
    explicit CatalogueTransfer(const TransferServices& services, QObject* parent = nullptr);

    TransferOutcome SaveListToWorkbook(const QString& path);
    TransferOutcome LoadWorkbookIntoList(const QString& path);
    TransferOutcome SaveListToDatabase(const QString& path);
    TransferOutcome LoadDatabaseIntoList(const QString& path);

    // The cancel flag that Escape raises; each loop clears it when it starts.
    void raiseCancelFlag() { m_cancel = true; }
    // The program ends: a running save or load stops at its next row, and a save then writes
    // nothing, so the previous file stays byte for byte.
    void stopForExit() { m_exiting = true; }

signals:
    // A loaded workbook has put its sheet name into the sheet settings.
    void sheetNameChanged(const QString& name);

private:
    friend class TransferRun;

    CatalogueHeader header() const;
    void appendRow(const CatalogueRecord& record);
    bool detailsReadForSave();
    bool stopSeen();
    bool nextRow(qsizetype index);
    SaveHooks saveHooks(TransferRun& run);
    LoadHooks loadHooks();
    void announceWorkbook(const QString& path, const QString& name, qint64 rows);
    void showStatus(const QString& text, qint16 delayMs, quint32 colour);
    void reportAdded(const QString& text, bool cancelled);
    TransferOutcome workbookSaveFailed(const QString& path, const QString& reason);
    TransferOutcome workbookLoadFailed(const QString& path, const QString& reason);
    TransferOutcome cancelledOverExisting(const QString& path, qsizetype count);
    // Values a load could not take, said once the rows are in the list; nothing when none.
    void reportSkipped(const QString& path, const LoadOutcome& loaded);
    TransferOutcome loadRead(TransferRun& run, const QString& path, const LoadOutcome& loaded);
    TransferOutcome loadedDamaged(const QString& path, const LoadOutcome& loaded);
    TransferOutcome fileFailed(const QString& path, const QString& reason);
    QString targetRefusal(const QString& path) const;
    bool mayDropWorkbookExtras(const QString& path);
    bool refuseTooLongForDatabase(const CatalogueRowSource& rows, const QString& path);
    TransferOutcome showLoaded(qsizetype added, const QString& path, bool cancelled);

    TransferServices m_s;
    bool m_cancel = false;
    bool m_exiting = false;
};

} // namespace nubo::database
