// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IVolumes.h"
#include "platform/linux/LinuxDrives.h"

namespace nubo::platform {

// Volume details from statvfs, the mount table and /dev/disk; space from statvfs.
class LinuxVolumes final : public IVolumes
{
public:
    std::optional<VolumeDetails> details(const QString& path) const override;
    std::optional<VolumeSpace> space(const QString& path) const override;

    // The serial a vfat, exfat or ntfs UUID stands for: its last eight hex digits.
    static std::optional<quint32> serialFromUuid(const QString& uuid);

private:
    static QString uuidOf(const QString& device);

    LinuxDrives m_drives;
};

} // namespace nubo::platform
