// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ResourceFolders.h"

#include "platform/Wildcard.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace nubo::app {

void ResourceFolders::createFolders()
{
    for (const char* name : {"Bitmap", "Icons", "Cursors"})
        m_app.createFolder(QString::fromLatin1(name));
}

void ResourceFolders::moveLooseFiles()
{
    moveMatching(QStringLiteral("*.bmp"), QStringLiteral("bitmap"));
    moveMatching(QStringLiteral("*.jpg"), QStringLiteral("bitmap"));
    moveMatching(QStringLiteral("*.cur"), QStringLiteral("cursors"));
    moveMatching(QStringLiteral("*.ico"), QStringLiteral("icons"));
}

int ResourceFolders::moveMatching(const QString& pattern, const QString& folder)
{
    const QString target = m_app.resolve(folder);
    if (!QFileInfo(target).isDir())
        return 0;
    int moved = 0;
    const QStringList files = QDir(m_app.path()).entryList(QDir::Files | QDir::Hidden);
    for (const QString& name : files) {
        if (!platform::wildcardMatch(pattern, name))
            continue;
        const QString destination = target + QLatin1Char('/') + name;
        if (QFileInfo::exists(destination))
            continue;
        if (QFile::rename(m_app.path() + QLatin1Char('/') + name, destination))
            ++moved;
    }
    return moved;
}

} // namespace nubo::app
