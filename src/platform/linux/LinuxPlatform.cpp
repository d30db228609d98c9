#include "platform/linux/LinuxPlatform.h"

#include "platform/linux/LinuxDirectoryReader.h"
#include "platform/linux/LinuxDrives.h"
#include "platform/linux/LinuxInstanceCheck.h"
#include "platform/linux/LinuxOpticalTray.h"
#include "platform/linux/LinuxVolumes.h"
#include "platform/linux/RegistryFile.h"

namespace nubo::platform {

PlatformServices createLinuxPlatform()
{
    PlatformServices services;
    services.drives = std::make_unique<LinuxDrives>();
    services.instances = std::make_unique<LinuxInstanceCheck>();
    services.registry = std::make_unique<RegistryFile>(RegistryFile::defaultPath());
    services.volumes = std::make_unique<LinuxVolumes>();
    services.tray = std::make_unique<LinuxOpticalTray>();
    services.directories = std::make_unique<LinuxDirectoryReader>();
    return services;
}

} // namespace nubo::platform
