#include "search/FolderWalker.h"

#include "platform/Wildcard.h"

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
    if (m_eventInterval > 0 && m_sinceEvents.isValid() && m_sinceEvents.elapsed() < m_eventInterval)
        return;
    m_host.letEventsRun();
    m_sinceEvents.start();
}

void FolderWalker::WalkFolder(const QString& path)
{
    m_currentFolder = path;
    QString shown = path;
    if (!shown.isEmpty())
        shown[0] = shown[0].toUpper();
    m_host.setFolderStrip(QStringLiteral("Buscando ... ") + shown);
    letEventsRun();
    if (!Searching)
        return;

    QStringList subFolders;
    if (const std::optional<QList<platform::DirEntry>> entries = m_directories.read(path)) {
        for (const platform::DirEntry& entry : *entries) {
            // Every folder whose name begins with a dot is left out, not only "." and "..".
            // A Windows drive's tree never enters another drive: other file systems mounted
            // below the start are left out too.
            if (entry.isFolder &&
                (entry.name.startsWith(QLatin1Char('.')) || entry.otherFileSystem))
                continue;
            if (entry.isFolder) {
                FoldersSeen.increment();
                if (entry.undecodable)
                    m_host.undecodableName(path + entry.name + QLatin1Char('/'));
                else
                    subFolders.append(entry.name);
            } else if (!CollectFiles) {
                FilesSeen.increment();
            }
        }
    }
    if (CollectFiles) {
        const FolderBatch batch(m_host);
        MatchFilesInFolder(path);
    }
    for (const QString& name : subFolders)
        WalkFolder(path + name + QLatin1Char('/'));
}

void FolderWalker::MatchFilesInFolder(const QString& path)
{
    const std::optional<QList<platform::DirEntry>> entries = m_directories.read(path);
    if (!entries)
        return;
    if (!m_mask || m_mask->pattern() != SearchMask)
        m_mask.emplace(SearchMask);
    for (const platform::DirEntry& entry : *entries) {
        // No attribute test: matching folders are offered too, and the list refuses them.
        if (!m_mask->matches(entry.name))
            continue;
        letEventsRun();
        if (!Searching)
            return;
        if (entry.undecodable)
            m_host.undecodableName(path + entry.name);
        m_host.addFileToList(path + entry.name);
        // Counted whatever the list did with the name.
        MatchCount.increment();
    }
}

} // namespace nubo::search
