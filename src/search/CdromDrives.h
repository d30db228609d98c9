// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDialogs.h"
#include "platform/IDrives.h"
#include "search/ICdChooser.h"
#include "search/ISearchWindow.h"
#include "search/SearchEngine.h"

namespace nubo::search {

// Finds the CD-ROM drives of the drive list, searches a whole CD, and runs the chooser's
// search button.
class CdromDrives final
{
public:
    CdromDrives(ISearchWindow& window, ICdChooser& chooser, const platform::IDrives& drives,
                platform::IDialogs& dialogs, SearchEngine& engine)
        : m_window(window), m_chooser(chooser), m_drives(drives), m_dialogs(dialogs),
          m_engine(engine)
    {
    }

    // Rebuilds the chooser's list from the drive list; the number of CD-ROM drives.
    int CountCdromDrives();
    // True when the drive list accepts text as its drive, which it then keeps selected.
    bool IsValidDrive(const QString& text);
    // The whole-CD command after the mask check.
    void SearchWholeCd();
    // The chooser's button: searches the typed or chosen drive.
    void SearchChosenDrive();

private:
    ISearchWindow& m_window;
    ICdChooser& m_chooser;
    const platform::IDrives& m_drives;
    platform::IDialogs& m_dialogs;
    SearchEngine& m_engine;
};

} // namespace nubo::search
