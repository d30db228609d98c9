// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"
#include "catalogue/DropHandler.h"
#include "catalogue/EntryOpener.h"
#include "catalogue/EntryPathResolver.h"
#include "catalogue/RowDetails.h"
#include "catalogue/ui/Form1.h"

namespace nubo::platform {
class IShell;
}

namespace nubo::catalogue {

// The services the list window's parts are made from.
struct ListWindowServices
{
    const platform::AppFolder& app;
    const platform::IDrives& drives;
    platform::IDialogs& dialogs;
    platform::IShell& shell;
    const core::Options& options;
};

// The catalogue and its list window, built together for the composition root. Other
// windows reach the rows through `catalogue` and the window through `form`.
struct ListWindow
{
    explicit ListWindow(const ListWindowServices& s)
        : catalogue(s.drives, s.dialogs), resolver(s.drives),
          opener(catalogue, resolver, s.shell, s.options), details(resolver),
          drops(catalogue, s.dialogs), form({s.app, catalogue, opener, details, drops, s.options})
    {
    }

    Catalogue catalogue;
    EntryPathResolver resolver;
    EntryOpener opener;
    RowDetails details;
    DropHandler drops;
    Form1 form;
};

} // namespace nubo::catalogue
