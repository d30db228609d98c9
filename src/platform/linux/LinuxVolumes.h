// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IVolumes.h"
#include "platform/linux/LinuxDrives.h"

namespace nubo::platform {

// Volume details from statvfs, the mount table and /dev/disk; space from statvfs. A path that
// no mount entry covers (a chroot lists none for its own "/") is described by statfs alone.
class LinuxVolumes final : public IVolumes
{
public:
    // systemRoot as LinuxDrives takes it: "/" in the program, a folder tree in tests.
    explicit LinuxVolumes(QString systemRoot = QStringLiteral("/"));

    std::optional<VolumeDetails> details(const QString& path) const override;
    std::optional<VolumeSpace> space(const QString& path) const override;

    // The serial a vfat, exfat or ntfs UUID stands for: its last eight hex digits.
    static std::optional<quint32> serialFromUuid(const QString& uuid);

    // The kernel's name for a statfs file-system magic number; empty when unknown.
    static QString fileSystemOfMagic(quint64 magic);

private:
    static QString uuidOf(const QString& device);
    // What statvfs and statfs of the path itself tell; label and serial stay empty.
    static std::optional<VolumeDetails> unmountedDetails(const QString& path);

    LinuxDrives m_drives;
};

} // namespace nubo::platform
