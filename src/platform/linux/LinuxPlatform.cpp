// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxPlatform.h"

#include "platform/linux/LinuxDirectoryReader.h"
#include "platform/linux/LinuxDrives.h"
#include "platform/linux/LinuxInstanceCheck.h"
#include "platform/linux/LinuxOpticalTray.h"
#include "platform/linux/LinuxVolumes.h"
#include "platform/linux/RegistryFile.h"
#include "platform/linux/XdgDirs.h"

#include <QProcess>

namespace nubo::platform {

PlatformServices createLinuxPlatform(DesktopPrompts prompts)
{
    PlatformServices services;
    services.drives = std::make_unique<LinuxDrives>();
    services.instances = std::make_unique<LinuxInstanceCheck>();
    services.registry = std::make_unique<RegistryFile>(RegistryFile::defaultPath());
    services.volumes = std::make_unique<LinuxVolumes>();
    services.tray = std::make_unique<LinuxOpticalTray>();
    services.directories = std::make_unique<LinuxDirectoryReader>();
    if (prompts.chooser && prompts.desktopOpener) {
        services.shell = std::make_unique<DesktopShell>(
            MimeAssociations(XdgDirs::fromEnvironment()),
            [](const QString& program, const QStringList& arguments) {
                return QProcess::startDetached(program, arguments);
            },
            std::move(prompts.chooser), std::move(prompts.desktopOpener));
    }
    return services;
}

} // namespace nubo::platform
