// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/DriveType.h"
#include "platform/MountEntry.h"

#include <QByteArray>
#include <QList>

namespace nubo::platform {

// The volumes of /proc/self/mountinfo that count as drives, and the rules that derive a
// drive's prefix and type from them.
class MountTable final
{
public:
    // Parses mountinfo text; pseudo file systems and malformed lines are left out.
    [[nodiscard]] static MountTable parse(const QByteArray& mountinfo);

    const QList<MountEntry>& entries() const { return m_entries; }

    // The mount point of the volume that holds path: the longest mount-point prefix.
    const MountEntry* volumeOf(const QString& absolutePath) const;
    const MountEntry* byMountPoint(const QString& mountPoint) const;

    // A drive prefix is the mount point without a trailing '/'; the root volume's is "".
    static QString prefixOf(const QString& mountPoint);

    // The volumes the drive list offers, in table order: what a file manager shows. The root
    // volume and the one that holds homePath always; system places and RAM never.
    QList<MountEntry> offered(const QString& homePath) const;
    static bool isSystemPlace(const MountEntry& entry);

    static bool isPseudo(const QString& fsType);
    static bool isOpticalDevice(const QString& device);
    // Type from the mount alone; removability is decided by the caller from sysfs.
    static DriveType typeOf(const MountEntry& entry);

private:
    QList<MountEntry> m_entries;
};

} // namespace nubo::platform
