// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::catalogue {

// What the search and catalogue saves and loads show on the list window: the progress bar, the
// list's input, the current-folder strip, the find menu entry and the drive's labels. The list
// window implements it and keeps its controls to itself.
class IListWindow
{
public:
    virtual ~IListWindow() = default;

    // The progress bar of a catalogue save or load, shown at 0 of maximum.
    virtual void showProgress(int maximum) = 0;
    virtual void setProgress(int value) = 0;
    virtual void hideProgress() = 0;
    // The list's mouse and keys, off while a save or load has the rows.
    virtual void setListEnabled(bool enabled) = 0;
    virtual void scrollListToEnd() = 0;

    // The window and the search's controls on it.
    virtual void setCaption(const QString& caption) = 0;
    virtual void setBusyCursor(bool busy) = 0;
    virtual void showAndRaise() = 0;
    // Six ticks of caption flashing.
    virtual void startFlashing() = 0;
    // The folder being searched; a deep one keeps its start and end in sight.
    virtual void setFolderStrip(const QString& text) = 0;
    virtual void showFolderStrip() = 0;
    virtual void setFindMenuVisible(bool visible) = 0;
    virtual void setFindMenuCaption(const QString& caption) = 0;

    // The searched drive's space and volume details.
    virtual void setDriveSpace(const QString& total, const QString& free) = 0;
    virtual QString volumeName() const = 0;
    virtual void setVolumeName(const QString& name) = 0;
    virtual void setVolumeDetails(const QString& serial, const QString& maxComponentLength,
                                  const QString& fileSystem, const QString& flags) = 0;
};

} // namespace nubo::catalogue
