// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/ui/SearchWindows.h"

namespace nubo::search {

SearchWindows::SearchWindows(const Services& services)
    : form3(services.app, services.drives), form4(services.app),
      cdTray(services.tray, services.drives),
      engine({services.host, form3, form4, services.dialogs, services.drives, services.volumes,
              services.directories, cdTray}),
      cdrom(form3, form4, services.drives, services.dialogs, engine),
      controller(form3, services.dialogs, engine, cdrom)
{
    engine.walker().setEventInterval(core::EventPump::kWalkInterval);
    form3.setController(&controller);
    form4.setCdromDrives(&cdrom);
}

} // namespace nubo::search
