// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/fakes/FakeDialogs.h"
#include "platform/fakes/FakeDirectoryReader.h"
#include "platform/fakes/FakeDrives.h"
#include "platform/fakes/FakeOpticalTray.h"
#include "platform/fakes/FakeVolumes.h"
#include "search/CdromDrives.h"
#include "search/DriveList.h"
#include "search/ISearchHost.h"
#include "search/SearchEngine.h"
#include "search/SearchWindowController.h"

#include <QFileInfo>
#include <QSignalSpy>

#include <functional>

namespace nubo::test {

// The list a search fills, as a recorder: rows are the paths AddFileToList accepted, newest
// last. volume answers the group question; the rig keeps it as the window's box would.
class FakeSearchHost final : public search::ISearchHost
{
public:
    QStringList rows;
    QStringList offered;
    QStringList undecodable;
    QString folderStrip, volume;
    int batchDepth = 0;
    // Whether a path names a file; by default the file system's answer.
    std::function<bool(const QString&)> isFile = [](const QString& p) {
        return QFileInfo(p).isFile();
    };
    std::function<void(int)> onAdd; // runs after each accepted row, with the row count

    QStringList known; // offered as files the folder listing named, then treated alike
    void addKnownFileToList(const QString& path) override
    {
        known.append(path);
        addFileToList(path);
    }
    void addFileToList(const QString& path) override
    {
        offered.append(path);
        if (!isFile(path))
            return;
        rows.append(path);
        if (onAdd)
            onAdd(int(rows.size()));
    }
    int rowCount() const override { return int(rows.size()); }
    QString volumeName() const override { return volume; }
    void setFolderStrip(const QString& text) override { folderStrip = text; }
    void beginFolderBatch() override { ++batchDepth; }
    void endFolderBatch() override { --batchDepth; }
    void letEventsRun() override {}
    void undecodableName(const QString& path) override { undecodable.append(path); }
    QList<core::DiscRecord> discs; // every disc recorded, oldest first
    bool readsInOrder = false;
    bool walking = false;
    void recordDisc(const core::DiscRecord& record) override { discs.append(record); }
    void walkStarts(bool opticalDisc) override
    {
        readsInOrder = opticalDisc;
        walking = true;
    }
    void walkEnds() override { walking = false; }
    bool takesUndecodable = false; // as the list window does
    bool takesUndecodableNames() const override { return takesUndecodable; }
};

// The search window's settings over a drive list of fake drives.
class FakeSearchWindow final : public search::ISearchWindow
{
public:
    explicit FakeSearchWindow(const platform::IDrives& drives) : list(drives) {}

    search::DriveList list;
    QString drive, folder, mask = QStringLiteral("*.mp3");
    bool shown = true;
    QMap<QString, int> errorFor; // a drive text that raises another error

    QStringList driveTexts() const override { return list.texts(); }
    QString currentDriveText() const override { return drive; }
    int selectDrive(const QString& text) override
    {
        if (errorFor.contains(text))
            return errorFor.value(text);
        list.refresh();
        if (const int error = list.check(text))
            return error;
        drive = list.entries()[list.indexOf(text)].listText();
        return 0;
    }
    QString folderPath() const override { return folder; }
    void setFolderPath(const QString& path) override { folder = path; }
    QString maskText() const override { return mask; }
    void setMaskText(const QString& text) override { mask = text; }
    void showWindow() override { shown = true; }
    void hideWindow() override { shown = false; }
};

class FakeCdChooser final : public search::ICdChooser
{
public:
    QStringList drives;
    QString typed = QStringLiteral("Seleccione una unidad");
    bool alwaysUse = false, shown = false;

    void clearDrives() override { drives.clear(); }
    void addDrive(const QString& text) override { drives.append(text); }
    int driveCount() const override { return int(drives.size()); }
    QString driveAt(int index) const override { return drives.value(index); }
    QString typedDrive() const override { return typed; }
    bool alwaysUseDrive() const override { return alwaysUse; }
    void showWithDrive(const QString& text) override
    {
        shown = true;
        typed = text;
    }
    void hideWindow() override { shown = false; }
};

// Everything the search needs, over fakes; the directory reader is given.
struct SearchRig
{
    explicit SearchRig(const platform::IDirectoryReader& directories)
        : engine({host, window, chooser, dialogs, drives, volumes, directories, cdTray},
                 QLocale(QLocale::Spanish, QLocale::Spain))
    {
        engine.setMediumWait(0);
        QObject::connect(&engine, &search::SearchEngine::volumeNameChanged, &engine,
                         [this](const QString& name) { host.volume = name; });
    }

    platform::FakeDrives drives;
    platform::FakeVolumes volumes;
    platform::FakeDialogs dialogs;
    platform::FakeOpticalTray tray;
    FakeSearchHost host;
    FakeSearchWindow window{drives};
    FakeCdChooser chooser;
    search::CdTray cdTray{tray, drives};
    search::SearchEngine engine;
    // What the engine reported, oldest first.
    QSignalSpy captions{&engine, &search::SearchEngine::captionChanged};
    QSignalSpy messages{&engine, &search::SearchEngine::messageShown};
    QSignalSpy findMenu{&engine, &search::SearchEngine::findMenuVisibleChanged};
    QSignalSpy busy{&engine, &search::SearchEngine::busyChanged};
    QSignalSpy listShown{&engine, &search::SearchEngine::listWindowShown};
    QSignalSpy groupNames{&engine, &search::SearchEngine::groupNameChosen};
    QSignalSpy volumeDetails{&engine, &search::SearchEngine::volumeDetailsFound};
    QSignalSpy ends{&engine, &search::SearchEngine::searchEnded};
    search::CdromDrives cdrom{window, chooser, drives, dialogs, engine};
    search::SearchWindowController controller{window, dialogs, engine, cdrom};

    // The last report a spy holds (its argument at), or nothing.
    static QVariant last(const QSignalSpy& spy, int at = 0)
    {
        return spy.isEmpty() ? QVariant() : spy.last().at(at);
    }
    QString caption() const { return last(captions).toString(); }
    QString message() const { return last(messages).toString(); }
    QString groupName() const { return last(groupNames).toString(); }
    bool findMenuVisible() const { return last(findMenu).toBool(); }
    bool isBusy() const { return last(busy).toBool(); }

    // Searches folder at once, as a press of the hidden search button does.
    void searchFolder(const QString& folder, const QString& mask = QStringLiteral("*.mp3"))
    {
        window.folder = folder;
        window.mask = mask;
        engine.RunSearch();
    }
};

} // namespace nubo::test
