// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/AppFolderLocation.h"

#include "platform/AppFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace nubo::platform {

AppFolderLocation::AppFolderLocation(QString executableFolder, QString dataHome,
                                     bool executableFolderWritable)
    : m_executableFolder(std::move(executableFolder)), m_dataHome(std::move(dataHome)),
      m_executableFolderWritable(executableFolderWritable)
{
}

AppFolderLocation AppFolderLocation::ofRunningProgram()
{
    const QString folder = QCoreApplication::applicationDirPath();
    QString dataHome = qEnvironmentVariable("XDG_DATA_HOME");
    if (!QDir::isAbsolutePath(dataHome))
        dataHome = QDir::homePath() + QStringLiteral("/.local/share");
    return AppFolderLocation(folder, dataHome, QFileInfo(folder).isWritable());
}

QString AppFolderLocation::installedPictures() const
{
    return QDir::cleanPath(m_executableFolder + QStringLiteral("/" NUBO_DATA_FROM_BIN));
}

QString AppFolderLocation::userFolder() const
{
    return m_dataHome + QStringLiteral("/nubo");
}

bool AppFolderLocation::usesUserFolder() const
{
    return !m_executableFolderWritable || QFileInfo(installedPictures()).isDir();
}

QString AppFolderLocation::folder() const
{
    return usesUserFolder() ? userFolder() : m_executableFolder;
}

QString AppFolderLocation::prepare() const
{
    if (!usesUserFolder())
        return m_executableFolder;
    QDir().mkpath(userFolder());
    copyMissingPictures();
    return userFolder();
}

void AppFolderLocation::copyMissingPictures() const
{
    // A read-only portable folder (a network share, say) lends its own pictures.
    const QString installed = installedPictures();
    const QString source = QFileInfo(installed).isDir() ? installed : m_executableFolder;
    for (const char* folder : {"Bitmap", "Icons", "Cursors"}) {
        const QString from = AppFolder::resolveIn(source, QLatin1String(folder));
        QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString picture = it.next();
            const QString target = AppFolder::resolveIn(userFolder(), QLatin1String(folder) +
                                                                          picture.mid(from.size()));
            if (QFileInfo::exists(target))
                continue;
            QDir().mkpath(QFileInfo(target).path());
            // The installed copy is read-only; the user's copy belongs to the user.
            if (QFile::copy(picture, target))
                QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner |
                                                  QFile::ReadGroup | QFile::ReadOther);
        }
    }
}

} // namespace nubo::platform
