// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::search {

// The CD-ROM chooser window as the CD-ROM commands use it.
class ICdChooser
{
public:
    virtual ~ICdChooser() = default;

    virtual void clearDrives() = 0; // Combo1's list
    virtual void addDrive(const QString& text) = 0;
    virtual int driveCount() const = 0;
    virtual QString driveAt(int index) const = 0;
    virtual QString typedDrive() const = 0;  // Combo1's text
    virtual bool alwaysUseDrive() const = 0; // Check1
    virtual void showWithDrive(const QString& text) = 0;
    virtual void hideWindow() = 0;
};

} // namespace nubo::search
