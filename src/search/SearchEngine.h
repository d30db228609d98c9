// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDialogs.h"
#include "platform/IDrives.h"
#include "platform/IVolumes.h"
#include "search/CdTray.h"
#include "search/FolderWalker.h"
#include "search/ICdChooser.h"
#include "search/ISearchHost.h"
#include "search/ISearchWindow.h"

#include <QLocale>
#include <QObject>

#include <optional>

namespace nubo::search {

// The search driver of the list window: asks for the group, walks the chosen folder once per
// floppy letter present, reports the outcome, and takes stop requests while it walks. The
// rows go to the host; what the window shows of the search leaves as signals, which the
// composition connects directly, so each is seen before the engine goes on.
class SearchEngine final : public QObject
{
    Q_OBJECT

public:
    struct Services
    {
        ISearchHost& host;
        ISearchWindow& window;
        ICdChooser& chooser;
        platform::IDialogs& dialogs;
        const platform::IDrives& drives;
        const platform::IVolumes& volumes;
        const platform::IDirectoryReader& directories;
        CdTray& tray;
    };

    explicit SearchEngine(const Services& services, QLocale locale = QLocale(),
                          QObject* parent = nullptr);

    void StartSearch(const QString& drive);
    // How long a retry waits for a shut drive to find its disc.
    void setMediumWait(int milliseconds) { m_mediumWait = milliseconds; }
    // The hidden search button: starts a search, or asks the running one to stop.
    void RunSearch();
    void ShowVolumeDetails(const QString& root);
    void ShowDriveSpace(const QString& root);

    // Escape, the exit command and closing the list window: stops a running search.
    // True when one was running.
    bool requestStop();
    // A folder dropped on the list: searched with the given mask.
    void searchDroppedFolder(const QString& folder, const QString& mask);

    FolderWalker& walker() { return m_walker; }
    // The search window's list button, as a search does: the list window comes up.
    void showListWindow() { emit listWindowShown(); }

    bool CancelRequested = false;
    QString StartPath;

signals:
    void captionChanged(const QString& caption);
    // mnuFindFiles: shown while a search runs, "&Parar!" while it walks.
    void findMenuVisibleChanged(bool visible);
    void findMenuCaptionChanged(const QString& caption);
    void busyChanged(bool busy);
    // Picture1 comes into sight; the walk prints the folder it enters through the host.
    void folderStripShown();
    void listWindowShown();
    void driveSpaceFound(const QString& total, const QString& free);
    void volumeNameChanged(const QString& name);
    void volumeDetailsFound(const QString& serial, const QString& maxComponentLength,
                            const QString& fileSystem, const QString& flags);
    // The group the user named: the origin of the rows the search adds.
    void groupNameChosen(const QString& name);
    // LblInfo: the number of files added, shown for delayMs in colour 0xRRGGBB.
    void messageShown(const QString& text, qint16 delayMs, quint32 rgb);
    // A search that walked has reported its outcome: the caption flashes, the count line
    // ("La lista contiene ...") is redrawn.
    void searchEnded();

private:
    // Steps of StartSearch that may raise; the runtime error number, or 0.
    int prepareAndRun(const QString& drive);
    // The mount point of a disc that is in the drive; empty when it holds no files (told to
    // the user); nothing when the drive is empty.
    std::optional<QString> mountInsertedDisc(const QString& drive);
    void waitForMedium(const QString& drive);
    bool askGroupName();
    QString startPathFor(const QString& folder, const QString& driveText) const;
    // The mount point of the volume that holds a folder.
    QString volumeOf(const QString& folder) const;
    QString driveRootOf(const QString& folder) const;
    void walkOncePerFloppy();
    void reportOutcome(int countBefore);
    QString undecodableNote() const;
    void walkAndRecordDisc(const QString& folder);
    void reportOverflow();

    Services m_services;
    QLocale m_locale;
    FolderWalker m_walker;
    int m_mediumWait = 8000;
    QString m_overflowFolder; // where the last walk hit the 16-bit limit; empty when it did not
};

} // namespace nubo::search
