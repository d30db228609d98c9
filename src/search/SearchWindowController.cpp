// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/SearchWindowController.h"

namespace nubo::search {

void SearchWindowController::raiseCancelFlag()
{
    if (m_raiseCancelFlag)
        m_raiseCancelFlag();
}

void SearchWindowController::MaskCheck()
{
    MaskRejected = false;
    // Any text with a dot in it passes; nothing else is checked.
    if (m_window.maskText().contains(QLatin1Char('.')))
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
    m_engine.host().showListWindow();
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
