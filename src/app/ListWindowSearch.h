// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/ui/ListWindow.h"
#include "search/ui/ListWindowSink.h"
#include "search/ui/SearchWindows.h"

namespace nubo::app {

// The search joined to the list window: what it finds goes into the window's catalogue, what
// it reports to the window's caption, menu entry, strip and labels, and the window's search
// button, Escape and dropped folders reach it.
class ListWindowSearch final
{
public:
    struct Services
    {
        const platform::AppFolder& app;
        platform::IDialogs& dialogs;
        const platform::IDrives& drives;
        const platform::IVolumes& volumes;
        const platform::IDirectoryReader& directories;
        platform::IOpticalTray& tray;
    };

    ListWindowSearch(catalogue::ListWindow& list, const Services& services);

    search::SearchWindows& windows() { return m_windows; }

private:
    void connectReports(catalogue::ListWindow& list);

    search::ListWindowSink m_sink;
    search::SearchWindows m_windows;
};

} // namespace nubo::app
