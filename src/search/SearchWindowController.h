// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDialogs.h"
#include "search/CdromDrives.h"
#include "search/ISearchWindow.h"
#include "search/SearchEngine.h"

#include <functional>

namespace nubo::search {

// The search window's commands: the mask check, the two searches, the list button and the
// keys that press them.
class SearchWindowController final
{
public:
    enum class Command { None, Search, SearchCd, ShowList };

    SearchWindowController(ISearchWindow& window, platform::IDialogs& dialogs, SearchEngine& engine,
                           CdromDrives& cdrom)
        : m_window(window), m_dialogs(dialogs), m_engine(engine), m_cdrom(cdrom)
    {
    }

    // The module-level cancel flag that the list window's Escape also raises.
    void setCancelFlagRaiser(std::function<void()> raise) { m_raiseCancelFlag = std::move(raise); }

    void MaskCheck();
    void Command1Click(); // "&Buscar"
    void Command2Click(); // "Buscar en todo el &CD-ROM"
    void Command4Click(); // "&Ver lista"
    void run(Command command);

    // The shortcut filter of the mask box, the drive list and the folder list: the command a
    // typed character presses, None to let it through. Enter counts in the mask box only.
    static Command commandForKey(int character, bool inMaskBox);

    bool MaskRejected = false;

private:
    void raiseCancelFlag();

    ISearchWindow& m_window;
    platform::IDialogs& m_dialogs;
    SearchEngine& m_engine;
    CdromDrives& m_cdrom;
    std::function<void()> m_raiseCancelFlag;
};

} // namespace nubo::search
