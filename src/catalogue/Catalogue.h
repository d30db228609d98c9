// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueList.h"
#include "catalogue/DetailReader.h"
#include "catalogue/DiscList.h"
#include "catalogue/InfoMessage.h"
#include "catalogue/RowDeriver.h"

#include <QObject>

namespace nubo::platform {
class IDialogs;
}

namespace nubo::catalogue {

class ICatalogueSaveFlow;
class IListWindow;

// What became of EmptyList: the rows were removed; they stayed by the user's choice (Cancel,
// or nothing to empty); or they stayed because the save the user asked for did not happen or
// a save or load has the list. The list window's exit goes on only after the first two.
enum class EmptyOutcome { Emptied, Kept, Stopped };

// The catalogue and its list operations, apart from any widget.
class Catalogue final : public QObject
{
    Q_OBJECT
public:
    Catalogue(const platform::IDrives& drives, platform::IDialogs& dialogs,
              QObject* parent = nullptr);

    // The save steps of EmptyList; without one, answering Yes keeps the list as it is.
    void setSaveFlow(ICatalogueSaveFlow* flow) { m_saveFlow = flow; }
    // Where waitForDetails shows its progress; without one it waits unseen.
    void setWaitWindow(IListWindow* window) { m_waitWindow = window; }

    CatalogueList& list() { return m_list; }
    const CatalogueList& list() const { return m_list; }
    // The disc record of each group of the list.
    DiscList& discs() { return m_discs; }
    const DiscList& discs() const { return m_discs; }
    // Counts each group's files, bytes and length afresh for the disc records' view.
    void refreshDiscTotals();
    InfoMessage& info() { return m_info; }
    const QString& countLine() const { return m_countLine; }

    // The ORIGEN of rows added from now on.
    const QString& groupName() const { return m_groupName; }
    void setGroupName(const QString& name);
    // Off: rows added from now on get no details (a listing that only wants the names).
    void setReadsDetails(bool reads) { m_readsDetails = reads; }
    // The current catalogue file (lblCurList).
    const QString& currentFile() const { return m_currentFile; }
    void setCurrentFile(const QString& path);
    // While a save or load lets window events run over the list, commands that change the
    // rows are refused, so the file never gets rows the user removed halfway.
    bool isBusy() const { return m_busy; }
    void setBusy(bool busy);
    // True, after telling the user so on the message line, while the list is busy or waits
    // for its details.
    bool refuseWhileBusy();
    Qt::SortOrder sortOrder() const { return m_sortOrder; }

    // Adds one existing file as the new top row; on return path holds the file's folder (see
    // RowDeriver).
    void AddFileToList(QString& path);
    // A folder listing already said path is a regular file: it is not looked up again.
    // The row's details are read afterwards, off the interface thread (see DetailReader).
    void AddKnownFileToList(QString& path);

    // The reads of rows' details. A search of an optical disc reads them in directory order.
    DetailReader& detailReader() { return m_reader; }
    // Until every row's details are read: whatever sorts, finds in or saves the rows calls this
    // first. It lets window events run, shows the progress bar when the wait is long enough to
    // be seen, and refuses the commands that change rows meanwhile. Escape (stopDetailWait) ends it
    // at once: the reads not done are abandoned, the rows stay with the details read so far, and
    // the answer is false. Also false when a wait is already under way.
    [[nodiscard]] bool waitForDetails();
    void stopDetailWait() { m_stopWait = true; }
    // positions: the list positions of the rows the list window has selected.
    void DeleteSelectedRows(const std::vector<int>& positions);
    EmptyOutcome EmptyList();
    void SortByColumn(int column);
    void ShowInfoMessage(const QString& text, qint16 delayMs, quint32 colour); // 0xRRGGBB
    void UpdateCountLine();

signals:
    void countLineChanged(const QString& text);
    void currentFileChanged(const QString& path);
    void busyChanged(bool busy);

private:
    void setCountLine(const QString& text);
    QString renameGroupRows(const QString& from, const QString& to);
    // The user's answer to the save question, and the save it asked for.
    EmptyOutcome offerToSave();

    platform::IDialogs& m_dialogs;
    ICatalogueSaveFlow* m_saveFlow = nullptr;
    IListWindow* m_waitWindow = nullptr;
    CatalogueList m_list;
    DetailReader m_reader;
    DiscList m_discs;
    RowDeriver m_deriver;
    InfoMessage m_info;
    QString m_countLine = QStringLiteral("La lista esta vacia");
    QString m_groupName;
    QString m_currentFile;
    Qt::SortOrder m_sortOrder = Qt::AscendingOrder;
    bool m_busy = false;
    bool m_readsDetails = true;
    bool m_waiting = false;
    bool m_stopWait = false;
};

} // namespace nubo::catalogue
