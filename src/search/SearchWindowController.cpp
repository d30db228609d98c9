// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/SearchWindowController.h"

#include "platform/MaskList.h"

#include <algorithm>

namespace nubo::search {

void SearchWindowController::raiseCancelFlag()
{
    if (m_raiseCancelFlag)
        m_raiseCancelFlag();
}

void SearchWindowController::MaskCheck()
{
    MaskRejected = false;
    // Each of the mask's patterns passes with a dot in it; nothing else is checked.
    const QStringList patterns = platform::MaskList::patternsOf(m_window.maskText());
    const bool allHaveDots =
        std::all_of(patterns.cbegin(), patterns.cend(),
                    [](const QString& pattern) { return pattern.contains(QLatin1Char('.')); });
    if (!patterns.isEmpty() && allHaveDots)
        return;
    m_window.setMaskText(QStringLiteral("*.mp3"));
    m_dialogs.messageBox(QStringLiteral("Extencion Invalida, la extencion se restaurara a *.mp3"),
                         QStringLiteral("Extencion Invalida"));
    MaskRejected = true;
}

void SearchWindowController::Command1Click()
{
    m_window.hideWindow();
    raiseCancelFlag();
    MaskCheck();
    if (!MaskRejected)
        m_engine.StartSearch(m_window.currentDriveText());
}

void SearchWindowController::Command2Click()
{
    raiseCancelFlag();
    MaskCheck();
    if (!MaskRejected)
        m_cdrom.SearchWholeCd();
}

void SearchWindowController::Command4Click()
{
    m_engine.showListWindow();
    m_window.hideWindow();
}

void SearchWindowController::run(Command command)
{
    switch (command) {
    case Command::Search:
        Command1Click();
        break;
    case Command::SearchCd:
        Command2Click();
        break;
    case Command::ShowList:
        Command4Click();
        break;
    case Command::None:
        break;
    }
}

SearchWindowController::Command SearchWindowController::commandForKey(int character, bool inMaskBox)
{
    switch (character) {
    case 13:
        return inMaskBox ? Command::Search : Command::None;
    case 2: // Ctrl+B
        return Command::Search;
    case 3: // Ctrl+C
        return Command::SearchCd;
    case 22: // Ctrl+V
        return Command::ShowList;
    default:
        return Command::None;
    }
}

} // namespace nubo::search
