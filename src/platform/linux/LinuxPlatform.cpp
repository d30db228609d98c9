#include "platform/linux/LinuxPlatform.h"

#include "platform/linux/LinuxDrives.h"
#include "platform/linux/LinuxInstanceCheck.h"
#include "platform/linux/RegistryFile.h"

namespace nubo::platform {

PlatformServices createLinuxPlatform()
{
    PlatformServices services;
    services.drives = std::make_unique<LinuxDrives>();
    services.instances = std::make_unique<LinuxInstanceCheck>();
    services.registry = std::make_unique<RegistryFile>(RegistryFile::defaultPath());
    return services;
}

} // namespace nubo::platform
