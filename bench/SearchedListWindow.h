// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The shown list window joined to its search, set to walk a folder for "*.mp3", as the search
// benchmarks use it. Needs NUBO_APP_DIR.
#include "app/ListWindowSearch.h"
#include "catalogue/ui/ListWindow.h"
#include "core/Options.h"
#include "platform/PlatformServices.h"
#include "platform/fakes/FakeDialogs.h"
#include "platform/fakes/FakeShell.h"

#include <QPushButton>

namespace nubo::bench {

struct SearchedListWindow
{
    platform::AppFolder app{QStringLiteral(NUBO_APP_DIR)};
    platform::FakeDialogs dialogs;
    platform::FakeShell shell;
    core::Options options;
    catalogue::ListWindow list;
    app::ListWindowSearch joined;

    SearchedListWindow(const platform::PlatformServices& services, const QString& root)
        : list({app, *services.drives, dialogs, shell, options}),
          joined(list, {app, dialogs, *services.drives, *services.volumes, *services.directories,
                        *services.tray})
    {
        list.form.show();
        joined.windows().form3.setFolderPath(root);
        joined.windows().form3.setMaskText(QStringLiteral("*.mp3"));
    }

    // The walk, as the search window's button starts it; returns once every row is listed.
    void search() { list.form.findChild<QPushButton*>(QStringLiteral("Command1"))->click(); }
};

} // namespace nubo::bench
