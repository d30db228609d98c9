// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <functional>

namespace nubo::platform {
class IDrives;
}

namespace nubo::catalogue {

class CatalogueList;
struct CatalogueRow;

// Turns a catalogue row back into a full path. Rows whose drive is "NN" are looked for on
// the drives of the drive list, last to first.
class EntryPathResolver final
{
public:
    using DriveList = std::function<QStringList()>;

    // By default the drive list is the mount points of drives(), in their order.
    explicit EntryPathResolver(const platform::IDrives& drives);

    // The texts the "NN" walk goes through (the search window's drive list, once it exists).
    void setDriveList(DriveList driveList) { m_driveList = std::move(driveList); }

    // The full path of the row at position, or an empty text when it cannot be found.
    QString ResolveEntryPath(const CatalogueList& list, int position) const;
    // The row's file below its drive, as its columns name it: folder, name and extension.
    static QString fileBelowDrive(const CatalogueRow& row);

private:
    QString findOnDrives(const QString& rest) const;

    const platform::IDrives& m_drives;
    DriveList m_driveList;
};

} // namespace nubo::catalogue
