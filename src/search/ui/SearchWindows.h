// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/ISearchLauncher.h"
#include "platform/IOpticalTray.h"
#include "search/CdromDrives.h"
#include "search/SearchEngine.h"
#include "search/SearchWindowController.h"
#include "search/ui/Form3.h"
#include "search/ui/Form4.h"

namespace nubo::search {

// The search subsystem put together: the search window, the CD-ROM chooser, the engine that
// fills the host's list, and the commands that join them. It is the list window's launcher:
// its hidden search button, Escape and dropped folders reach the engine here.
class SearchWindows final : public catalogue::ISearchLauncher
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

    void RunSearch() override { engine.RunSearch(); }
    void searchFolder(const QString& folder, const QString& mask) override
    {
        engine.searchDroppedFolder(folder, mask);
    }
    bool stop() override { return engine.requestStop(); }

    Form3 form3;
    Form4 form4;
    CdTray cdTray;
    SearchEngine engine;
    CdromDrives cdrom;
    SearchWindowController controller;
};

} // namespace nubo::search
