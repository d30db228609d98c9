// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::catalogue {

// What the search and catalogue saves and loads show on the list window: the progress bar, the
// list's input and the current-folder strip. The list window implements it and keeps its
// controls to itself.
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

    // The search's sink and question: the folder being searched (a deep one keeps its start
    // and end in sight) and the volume's name box. The search's other reports are signals the
    // composition connects to the window's own calls.
    virtual void setFolderStrip(const QString& text) = 0;
    virtual QString volumeName() const = 0;
};

} // namespace nubo::catalogue
