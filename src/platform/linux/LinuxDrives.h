// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDrives.h"
#include "platform/MountTable.h"

#include <QElapsedTimer>

#include <optional>

namespace nubo::platform {

// Drives from /proc/self/mountinfo, /dev/disk/by-label and /sys/class/block, read below a
// system root ("/" in the program; a folder tree standing in for the system in tests).
class LinuxDrives final : public IDrives
{
public:
    explicit LinuxDrives(QString systemRoot = QStringLiteral("/"));

    QList<DriveInfo> drives() const override;
    QString drivePrefixOf(const QString& absolutePath) const override;
    DriveType driveType(const QString& drive) const override;
    FloppyPresence floppyPresence() const override { return {}; }

    // The file-system label of a device node, from /dev/disk/by-label; empty when none.
    QString labelOf(const QString& device) const;
    // The mounted volume that holds a path, from a mount table at most two seconds old.
    std::optional<MountEntry> volumeOf(const QString& path) const;

private:
    // The mount table, re-read at most every two seconds unless fresh: prefixes are asked
    // once per file.
    const MountTable& table(bool fresh = false) const;
    DriveInfo describe(const MountEntry& entry) const;
    bool isRemovable(const QString& device) const;
    // A system path ("/dev/sr0") below the system root.
    QString systemPath(const QString& path) const;

    QString m_root;
    mutable MountTable m_table;
    mutable QElapsedTimer m_age;
};

} // namespace nubo::platform
