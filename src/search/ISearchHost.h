// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "search/IWalkHost.h"

namespace nubo::search {

// The list window as the search engine sees it: the catalogue list, its status lines and the
// controls the walk reports to. ListWindowHost implements it over the window's IListWindow;
// tests use a fake.
class ISearchHost : public IWalkHost
{
public:
    // The catalogue list.
    virtual int rowCount() const = 0;
    virtual void setGroupName(const QString& name) = 0;
    // Label2: "La lista contiene " + rows + " archivos actualmente".
    virtual void updateCountLine() = 0;
    virtual void showInfoMessage(const QString& text, int delayMs, quint32 rgb) = 0; // LblInfo
    // True, after telling the user, while a catalogue save or load has the list: no search may
    // add rows under it.
    virtual bool refuseWhileListBusy() { return false; }

    // The window and its search controls.
    virtual void setCaption(const QString& caption) = 0;
    virtual void setFindMenuVisible(bool visible) = 0; // mnuFindFiles
    virtual void setFindMenuCaption(const QString& caption) = 0;
    virtual void setBusyCursor(bool busy) = 0;
    virtual void showFolderStrip() = 0; // Picture1 shown
    virtual void startFlash() = 0;      // Timer1 enabled: six ticks of caption flashing
    virtual void showListWindow() = 0;

    // Drive space and volume details of the searched drive.
    virtual void setDriveSpace(const QString& total, const QString& free) = 0;
    virtual QString volumeName() const = 0; // txtvolumename
    virtual void setVolumeName(const QString& name) = 0;
    virtual void setVolumeDetails(const QString& serial, const QString& maxComponentLength,
                                  const QString& fileSystem, const QString& flags) = 0;
};

} // namespace nubo::search
