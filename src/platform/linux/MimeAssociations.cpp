// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/MimeAssociations.h"

#include "platform/linux/KeyFile.h"

#include <QDir>
#include <QDirIterator>
#include <QMimeDatabase>
#include <QSet>

#include <algorithm>

namespace nubo::platform {

namespace {

const QString kOctetStream = QStringLiteral("application/octet-stream");

QString applicationsFolder(const QString& dataDir)
{
    return dataDir + QStringLiteral("/applications");
}

// The type itself, its aliases, then its ancestors; "nothing known" is never a fallback.
QStringList typeAndAncestors(const QString& mimeType)
{
    const QMimeDatabase database;
    QStringList result{mimeType};
    for (qsizetype i = 0; i < result.size(); ++i) {
        const QMimeType type = database.mimeTypeForName(result.at(i));
        if (!type.isValid())
            continue;
        for (const QString& name :
             type.aliases() + QStringList{type.name()} + type.parentMimeTypes()) {
            if (name != kOctetStream && !result.contains(name))
                result.append(name);
        }
    }
    return result;
}

} // namespace

MimeAssociations::MimeAssociations(XdgDirs dirs) : m_dirs(std::move(dirs)) {}

QString MimeAssociations::mimeTypeOf(const QString& path)
{
    return QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchDefault).name();
}

void MimeAssociations::loadEntries() const
{
    if (m_loaded)
        return;
    m_loaded = true;
    QSet<QString> seen;
    for (const QString& dataDir : QStringList{m_dirs.dataHome} + m_dirs.dataDirs) {
        const QDir folder(applicationsFolder(dataDir));
        QDirIterator it(folder.path(), {QStringLiteral("*.desktop")}, QDir::Files,
                        QDirIterator::Subdirectories | QDirIterator::FollowSymlinks);
        while (it.hasNext()) {
            const QString path = it.next();
            QString id = folder.relativeFilePath(path);
            id.replace(QLatin1Char('/'), QLatin1Char('-'));
            if (seen.contains(id))
                continue; // a folder earlier in the search path shadows this one
            seen.insert(id);
            if (const std::optional<DesktopEntry> entry = DesktopEntry::read(path, id)) {
                m_entries.insert(id, *entry);
                m_entryFolder.insert(id, folder.path());
            }
        }
    }
}

QList<MimeAssociations::Source> MimeAssociations::sources() const
{
    QList<Source> result;
    auto addLists = [&](const QString& folder) {
        for (const QString& desktop : m_dirs.desktops)
            result.append(
                {folder + QLatin1Char('/') + desktop + QStringLiteral("-mimeapps.list"), {}});
        result.append({folder + QStringLiteral("/mimeapps.list"), {}});
    };
    for (const QString& configDir : QStringList{m_dirs.configHome} + m_dirs.configDirs)
        addLists(configDir);
    for (const QString& dataDir : QStringList{m_dirs.dataHome} + m_dirs.dataDirs) {
        addLists(applicationsFolder(dataDir));
        result.append({{}, QDir(applicationsFolder(dataDir)).path()});
    }
    return result;
}

std::optional<DesktopEntry> MimeAssociations::installed(const QString& id) const
{
    const auto it = m_entries.constFind(id);
    if (it == m_entries.constEnd() || it->hidden)
        return std::nullopt;
    return *it;
}

QStringList MimeAssociations::cachedIds(const QString& applications, const QString& mimeType) const
{
    const KeyFile cache = KeyFile::read(applications + QStringLiteral("/mimeinfo.cache"));
    QStringList ids = KeyFile::list(cache.group(QStringLiteral("MIME Cache")).value(mimeType));
    for (auto it = m_entries.constBegin(); it != m_entries.constEnd(); ++it) {
        if (m_entryFolder.value(it.key()) == applications && it->mimeTypes.contains(mimeType) &&
            !ids.contains(it.key()))
            ids.append(it.key());
    }
    return ids;
}

std::optional<DesktopEntry> MimeAssociations::lookup(const QString& mimeType) const
{
    const QList<Source> all = sources();
    for (const Source& source : all) {
        if (source.listFile.isEmpty())
            continue;
        const KeyFile list = KeyFile::read(source.listFile);
        for (const QString& id :
             KeyFile::list(list.group(QStringLiteral("Default Applications")).value(mimeType))) {
            if (std::optional<DesktopEntry> entry = installed(id))
                return entry;
        }
    }
    QSet<QString> removed;
    for (const Source& source : all) {
        QStringList candidates;
        if (!source.listFile.isEmpty()) {
            const KeyFile list = KeyFile::read(source.listFile);
            const QString key = mimeType;
            for (const QString& id :
                 KeyFile::list(list.group(QStringLiteral("Removed Associations")).value(key)))
                removed.insert(id);
            candidates = KeyFile::list(list.group(QStringLiteral("Added Associations")).value(key));
        } else {
            candidates = cachedIds(source.applications, mimeType);
        }
        for (const QString& id : candidates) {
            if (removed.contains(id))
                continue;
            if (std::optional<DesktopEntry> entry = installed(id))
                return entry;
        }
    }
    return std::nullopt;
}

std::optional<DesktopEntry> MimeAssociations::defaultApplication(const QString& mimeType) const
{
    if (mimeType.isEmpty() || mimeType == kOctetStream)
        return std::nullopt;
    loadEntries();
    for (const QString& type : typeAndAncestors(mimeType)) {
        if (std::optional<DesktopEntry> entry = lookup(type))
            return entry;
    }
    return std::nullopt;
}

QList<DesktopEntry> MimeAssociations::applications() const
{
    loadEntries();
    QList<DesktopEntry> result;
    for (const DesktopEntry& entry : std::as_const(m_entries)) {
        if (!entry.hidden && !entry.noDisplay)
            result.append(entry);
    }
    std::sort(result.begin(), result.end(), [](const DesktopEntry& a, const DesktopEntry& b) {
        return a.name.compare(b.name, Qt::CaseInsensitive) < 0;
    });
    return result;
}

} // namespace nubo::platform
