#pragma once

#include "database/CatalogueRecord.h"
#include "database/SheetSettings.h"

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
class CatalogueTransfer final : public QObject
{
    Q_OBJECT
public:
    explicit CatalogueTransfer(const TransferServices& services, QObject* parent = nullptr);

    void SaveListToWorkbook(const QString& path);
    void LoadWorkbookIntoList(const QString& path);
    void SaveListToDatabase(const QString& path);
    void LoadDatabaseIntoList(const QString& path);

    // The cancel flag that Escape raises; each loop clears it when it starts.
    void raiseCancelFlag() { m_cancel = true; }
    bool isRunning() const { return m_running; }

signals:
    // A loaded workbook has put its sheet name into the sheet settings.
    void sheetNameChanged(const QString& name);

private:
    friend class TransferRun;

    CatalogueHeader header() const;
    CatalogueRecord record(int row) const;
    void appendRow(const CatalogueRecord& record);
    bool cancelSeen();
    void showStatus(const QString& text, qint16 delayMs, quint32 colour);
    void reportAdded(const QString& text, bool cancelled);
    void workbookSaveFailed(const QString& path);
    void workbookLoadFailed(const QString& path);
    void fileFailed(const QString& path);
    bool targetWritable(const QString& path);
    void showLoaded(qsizetype added, const QString& path, bool cancelled);

    TransferServices m_s;
    bool m_cancel = false;
    bool m_running = false;
};

} // namespace nubo::database
