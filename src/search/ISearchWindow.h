// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace nubo::search {

// The search window's settings as the engine and the CD-ROM commands read them: the drive
// list, the folder tree and the mask box.
class ISearchWindow
{
public:
    virtual ~ISearchWindow() = default;

    virtual QStringList driveTexts() const = 0; // Drive1's entries
    virtual QString currentDriveText() const = 0;
    // Makes text the drive list's drive; 0, or the runtime error number it raises (68 for a
    // drive that is missing or has no medium).
    virtual int selectDrive(const QString& text) = 0;
    virtual QString folderPath() const = 0; // Dir1's path
    virtual void setFolderPath(const QString& path) = 0;
    virtual QString maskText() const = 0; // Combo1's text
    virtual void setMaskText(const QString& mask) = 0;
    virtual void showWindow() = 0;
    virtual void hideWindow() = 0;
};

} // namespace nubo::search
