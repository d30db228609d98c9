// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IOpticalTray.h"
#include "search/CdromDrives.h"
#include "search/SearchEngine.h"
#include "search/SearchWindowController.h"
#include "search/ui/Form3.h"
#include "search/ui/Form4.h"

namespace nubo::search {

// The search subsystem put together: the search window, the CD-ROM chooser, the engine that
// the list window owns through its host, and the commands that join them.
class SearchWindows final
{
public:
    struct Services
    {
        const platform::AppFolder& app;
        ISearchHost& host;
        platform::IDialogs& dialogs;
        const platform::IDrives& drives;
        const platform::IVolumes& volumes;
        const platform::IDirectoryReader& directories;
        platform::IOpticalTray& tray;
    };

    explicit SearchWindows(const Services& services);

    void showSearchWindow() { form3.showWindow(); }

    Form3 form3;
    Form4 form4;
    CdTray cdTray;
    SearchEngine engine;
    CdromDrives cdrom;
    SearchWindowController controller;
};

} // namespace nubo::search
