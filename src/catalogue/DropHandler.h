// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace nubo::platform {
class IDialogs;
}

namespace nubo::catalogue {

class Catalogue;
class ISearchLauncher;

// Names dropped on the list: files are added, folders are searched with a mask asked once
// per drop.
class DropHandler final
{
public:
    DropHandler(Catalogue& catalogue, platform::IDialogs& dialogs)
        : m_catalogue(catalogue), m_dialogs(dialogs)
    {
    }

    void setSearchLauncher(ISearchLauncher* launcher) { m_search = launcher; }

    // Stops at the first empty name, or when the extension question gets an empty answer.
    void handleDrop(const QStringList& names);

private:
    Catalogue& m_catalogue;
    platform::IDialogs& m_dialogs;
    ISearchLauncher* m_search = nullptr;
};

} // namespace nubo::catalogue
