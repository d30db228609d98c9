// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/FolderWalker.h"

#include "platform/MaskList.h"

namespace nubo::search {

namespace {

// The list's redraw comes back on even when an overflow abandons the folder.
class FolderBatch final
{
public:
    explicit FolderBatch(IWalkHost& host) : m_host(host) { m_host.beginFolderBatch(); }
    ~FolderBatch() { m_host.endFolderBatch(); }
    FolderBatch(const FolderBatch&) = delete;
    FolderBatch& operator=(const FolderBatch&) = delete;

private:
    IWalkHost& m_host;
};

} // namespace

FolderWalker::FolderWalker(IWalkHost& host, const platform::IDirectoryReader& directories)
    : m_host(host), m_directories(directories)
{
}

void FolderWalker::setSixteenBitCounters(bool on)
{
    MatchCount.setSixteenBit(on);
    FoldersSeen.setSixteenBit(on);
    FilesSeen.setSixteenBit(on);
}

void FolderWalker::letEventsRun()
{
    if (!m_events.isDue())
        return;
    // The strip is only seen when the window repaints, so it is printed just before events
    // run rather than for every folder entered.
    if (m_stripPending) {
        m_stripPending = false;
        QString shown = m_currentFolder;
        if (!shown.isEmpty())
            shown[0] = shown[0].toUpper();
        m_host.setFolderStrip(QStringLiteral("Buscando ... ") + shown);
    }
    m_host.letEventsRun();
    m_events.restart();
}

// A name that is not UTF-8 is always reported; it is counted when the host takes it.
bool FolderWalker::takeUndecodable(const QString& path)
{
    m_host.undecodableName(path);
    if (!m_host.takesUndecodableNames())
        return false;
    ++UndecodableNames;
    return true;
}

FolderWalker::WalkEnd FolderWalker::WalkFolder(const QString& path)
{
    m_counterFull = false;
    walk(path, QFile::encodeName(path));
    return m_counterFull ? WalkEnd::CounterFull : WalkEnd::Finished;
}

bool FolderWalker::count(SearchCounter& counter)
{
    if (!counter.increment())
        m_counterFull = true;
    return !m_counterFull;
}

void FolderWalker::walk(const QString& path, const QByteArray& native)
{
    m_currentFolder = path;
    m_stripPending = true;
    letEventsRun();
    if (!Searching || m_counterFull)
        return;

    // One listing serves both the folder's own matches and the folders to enter.
    const std::optional<QList<platform::DirEntry>> entries = m_directories.readNative(native);
    QList<const platform::DirEntry*> subFolders;
    if (entries) {
        for (const platform::DirEntry& entry : *entries) {
            // Every folder whose name begins with a dot is left out, not only "." and "..".
            // A Windows drive's tree never enters another drive: other file systems mounted
            // below the start are left out too.
            if (entry.isFolder &&
                (entry.name.startsWith(QLatin1Char('.')) || entry.otherFileSystem))
                continue;
            if (entry.isFolder) {
                if (!count(FoldersSeen))
                    return;
                if (!entry.undecodable || takeUndecodable(path + entry.name + QLatin1Char('/')))
                    subFolders.append(&entry);
            } else if (!CollectFiles && !count(FilesSeen)) {
                return;
            }
        }
    }
    if (CollectFiles && entries) {
        const FolderBatch batch(m_host);
        matchFiles(path, *entries);
    }
    for (const platform::DirEntry* entry : std::as_const(subFolders)) {
        if (m_counterFull)
            return;
        const QByteArray name =
            entry->undecodable ? entry->nativeName : QFile::encodeName(entry->name);
        walk(path + entry->name + QLatin1Char('/'), native + name + '/');
    }
}

void FolderWalker::matchFiles(const QString& path, const QList<platform::DirEntry>& entries)
{
    if (!m_mask || m_mask->text() != SearchMask)
        m_mask.emplace(SearchMask);
    for (const platform::DirEntry& entry : entries) {
        // No attribute test: matching folders are offered too, and the list refuses them.
        if (!m_mask->matches(entry.name))
            continue;
        letEventsRun();
        if (!Searching)
            return;
        // A name that is not UTF-8 names no file as it shows: the list's own look-up refuses
        // it unless the host takes such names, and then the listing's word is enough.
        const bool taken = !entry.undecodable || takeUndecodable(path + entry.name);
        if (entry.isFile && taken)
            m_host.addKnownFileToList(path + entry.name);
        else
            m_host.addFileToList(path + entry.name);
        // Counted whatever the list did with the name.
        if (!count(MatchCount))
            return;
    }
}

} // namespace nubo::search
