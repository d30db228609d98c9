// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::catalogue {

// The search driver as the list window starts and stops it; the search subsystem implements it.
class ISearchLauncher
{
public:
    virtual ~ISearchLauncher() = default;

    // The hidden search button: runs a search with the search window's settings, or asks a
    // running one to stop.
    virtual void RunSearch() = 0;
    // Searches one folder with a mask, as a folder dropped on the list does; returns when done.
    virtual void searchFolder(const QString& folder, const QString& mask) = 0;
    // Escape: sets the cancel flag; if a search is marked as running, clears that mark and
    // marks it stopped. True when a search was marked as running.
    virtual bool stop() = 0;
};

} // namespace nubo::catalogue
