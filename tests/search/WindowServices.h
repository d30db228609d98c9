// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "SearchFakes.h"
#include "platform/AppFolder.h"
#include "platform/linux/LinuxDirectoryReader.h"

#include <QTemporaryDir>

namespace nubo::test {

// The services the search windows take: fakes, the shipped pictures and a real file tree under
// root, whose folder is the one fixed drive.
struct WindowServices
{
    QTemporaryDir root;
    platform::AppFolder app{qEnvironmentVariable("NUBO_APP_DIR")};
    platform::FakeDrives drives;
    platform::FakeVolumes volumes;
    platform::FakeDialogs dialogs;
    platform::FakeOpticalTray tray;
    platform::LinuxDirectoryReader reader;

    // extraDrive: a second fixed drive, for tests that need one.
    explicit WindowServices(const QString& extraDrive = {})
    {
        drives.add(root.path(), platform::DriveType::Fixed);
        if (!extraDrive.isEmpty())
            drives.add(extraDrive, platform::DriveType::Fixed);
    }
};

} // namespace nubo::test
