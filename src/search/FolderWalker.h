// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/EventPump.h"
#include "platform/IDirectoryReader.h"
#include "platform/MaskList.h"
#include "search/IWalkHost.h"
#include "search/SearchCounter.h"

#include <QFile>

#include <optional>

namespace nubo::search {

// The depth-first, pre-order folder walk: every visited folder's names that match the mask
// go to the catalogue list. The walk state keeps the names the list window gives it.
class FolderWalker final
{
public:
    FolderWalker(IWalkHost& host, const platform::IDirectoryReader& directories);

    // Pending events run at most this often; 0 lets them run at every chance. A stop
    // request therefore reaches the walk within one interval.
    void setEventInterval(std::chrono::milliseconds interval) { m_events.setInterval(interval); }
    // The list window counts in 16 bits; the command line does not.
    void setSixteenBitCounters(bool on);

    enum class WalkEnd { Finished, CounterFull };
    // path ends in '/'. Folders whose names begin with '.' and links to folders are not entered.
    // A full 16-bit counter abandons the walk where it is (CounterFull); a stop request ends it
    // as Finished, Searching telling the two apart.
    [[nodiscard]] WalkEnd WalkFolder(const QString& path);
    // The folder the walk entered last: where an overflow stopped it.
    const QString& currentFolder() const { return m_currentFolder; }

    bool Searching = false;
    bool CollectFiles = false;
    QString SearchMask;
    SearchCounter MatchCount;
    SearchCounter FoldersSeen;
    SearchCounter FilesSeen;
    // Names met that are not UTF-8, where the host takes them (shown as Windows-1252).
    int UndecodableNames = 0;

private:
    // native: the same folder as the file system names it, which may not be UTF-8.
    void walk(const QString& path, const QByteArray& native);
    bool takeUndecodable(const QString& path);
    // Counts one more; false, with the walk abandoned, when the counter is full.
    bool count(SearchCounter& counter);
    void letEventsRun();
    void matchFiles(const QString& path, const QList<platform::DirEntry>& entries);

    IWalkHost& m_host;
    const platform::IDirectoryReader& m_directories;
    QString m_currentFolder;
    bool m_stripPending = false; // m_currentFolder is not on the strip yet
    bool m_counterFull = false;  // the walk in progress is abandoned
    // SearchMask read once, again whenever it changes.
    std::optional<platform::MaskList> m_mask;
    core::EventPump m_events;
};

} // namespace nubo::search
