// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/EntryPathResolver.h"

#include "catalogue/CatalogueList.h"
#include "platform/AppFolder.h"
#include "platform/IDrives.h"

#include <QFileInfo>

namespace nubo::catalogue {

namespace {

// The drive part of a drive-list text: a labelled drive's mount point without its
// " [label]", without a trailing '/', so that the root volume gives the empty text.
QString driveOfListText(const QList<platform::DriveInfo>& drives, const QString& text)
{
    QString drive = platform::pathOfDriveText(drives, text);
    while (drive.endsWith(QLatin1Char('/')))
        drive.chop(1);
    return drive;
}

// The file at drive + rest, its names matched without regard to case when the exact spelling
// does not exist: rows store the extension in capitals, as Windows ignores case.
QString existingSpelling(const QString& drive, const QString& rest)
{
    const QString exact = drive + rest;
    if (QFileInfo::exists(exact))
        return exact;
    const QString base = drive.isEmpty() ? QStringLiteral("/") : drive;
    QString folded = platform::AppFolder::resolveIn(base, rest);
    if (drive.isEmpty() && folded.startsWith(QStringLiteral("//")))
        folded.remove(0, 1);
    return folded;
}

} // namespace

EntryPathResolver::EntryPathResolver(const platform::IDrives& drives) : m_drives(drives)
{
    m_driveList = [this] {
        QStringList texts;
        for (const platform::DriveInfo& d : m_drives.drives()) {
            if (!d.mountPoint.isEmpty())
                texts.append(d.mountPoint);
        }
        return texts;
    };
}

QString EntryPathResolver::ResolveEntryPath(const CatalogueList& list, int position) const
{
    if (list.isEmpty() || position < 0 || position >= list.count())
        return {};
    const CatalogueRow& row = list.row(position);
    const QString rest = fileBelowDrive(row);
    if (row.unidad != unknownDriveText())
        return existingSpelling(row.unidad, rest);
    return findOnDrives(rest);
}

QString EntryPathResolver::fileBelowDrive(const CatalogueRow& row)
{
    QString folder = row.direccion == rootFolderText() ? QStringLiteral("/") : row.direccion;
    // Catalogues written on Windows hold folders with backslashes.
    folder.replace(QLatin1Char('\\'), QLatin1Char('/'));
    const QString extension =
        row.formato == noExtensionText() ? QString() : QLatin1Char('.') + row.formato;
    return folder + row.nombre + extension;
}

// Walks the drive list from its last entry to its first; a removable drive ends the walk.
QString EntryPathResolver::findOnDrives(const QString& rest) const
{
    const QStringList texts = m_driveList();
    const QList<platform::DriveInfo> drives = m_drives.drives();
    for (qsizetype i = texts.size() - 1; i >= 0; --i) {
        if (m_drives.driveType(texts.at(i)) == platform::DriveType::Removable)
            return {};
        const QString candidate = existingSpelling(driveOfListText(drives, texts.at(i)), rest);
        if (QFileInfo(candidate).isFile())
            return candidate;
    }
    return {};
}

} // namespace nubo::catalogue
