// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxVolumes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <linux/magic.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>

namespace nubo::platform {

namespace {

std::optional<struct statvfs> statOf(const QString& path)
{
    struct statvfs info
    {
    };
    if (path.isEmpty() || ::statvfs(QFile::encodeName(path).constData(), &info) != 0)
        return std::nullopt;
    return info;
}

} // namespace

LinuxVolumes::LinuxVolumes(QString systemRoot) : m_drives(std::move(systemRoot)) {}

QString LinuxVolumes::fileSystemOfMagic(quint64 magic)
{
    // The magic numbers of statfs(2), named as /proc/self/mountinfo names the file systems.
    // ext2, ext3 and ext4 share one number; ext4 is what a current system mounts.
    static const QHash<quint64, QString> names = {
        {EXT4_SUPER_MAGIC, QStringLiteral("ext4")},
        {BTRFS_SUPER_MAGIC, QStringLiteral("btrfs")},
        {XFS_SUPER_MAGIC, QStringLiteral("xfs")},
        {F2FS_SUPER_MAGIC, QStringLiteral("f2fs")},
        {TMPFS_MAGIC, QStringLiteral("tmpfs")},
        {RAMFS_MAGIC, QStringLiteral("ramfs")},
        {OVERLAYFS_SUPER_MAGIC, QStringLiteral("overlay")},
        {SQUASHFS_MAGIC, QStringLiteral("squashfs")},
        {MSDOS_SUPER_MAGIC, QStringLiteral("vfat")},
        {EXFAT_SUPER_MAGIC, QStringLiteral("exfat")},
        {ISOFS_SUPER_MAGIC, QStringLiteral("iso9660")},
        {UDF_SUPER_MAGIC, QStringLiteral("udf")},
        {NFS_SUPER_MAGIC, QStringLiteral("nfs")},
        {FUSE_SUPER_MAGIC, QStringLiteral("fuse")},
    };
    return names.value(magic);
}

std::optional<VolumeDetails> LinuxVolumes::unmountedDetails(const QString& path)
{
    const std::optional<struct statvfs> info = statOf(path);
    struct statfs kind
    {
    };
    if (!info || ::statfs(QFile::encodeName(path).constData(), &kind) != 0)
        return std::nullopt;
    VolumeDetails details;
    details.maxComponentLength = quint32(info->f_namemax);
    details.flags = quint32(info->f_flag);
    details.fileSystem = fileSystemOfMagic(quint64(quint32(kind.f_type)));
    return details;
}

std::optional<quint32> LinuxVolumes::serialFromUuid(const QString& uuid)
{
    QString digits = uuid;
    digits.remove(QLatin1Char('-'));
    if (digits.size() < 8)
        return std::nullopt;
    bool ok = false;
    const quint32 serial = digits.right(8).toUInt(&ok, 16);
    return ok ? std::optional<quint32>(serial) : std::nullopt;
}

QString LinuxVolumes::uuidOf(const QString& device)
{
    const QString target = QFileInfo(device).canonicalFilePath();
    if (target.isEmpty())
        return {};
    const QDir byUuid(QStringLiteral("/dev/disk/by-uuid"));
    for (const QFileInfo& link : byUuid.entryInfoList(QDir::System | QDir::Files)) {
        if (link.canonicalFilePath() == target)
            return link.fileName();
    }
    return {};
}

std::optional<VolumeDetails> LinuxVolumes::details(const QString& path) const
{
    // A volume is asked about by a folder on it; a device node names none.
    if (!QFileInfo(path).isDir())
        return std::nullopt;
    const std::optional<MountEntry> volume = m_drives.volumeOf(QFileInfo(path).absoluteFilePath());
    if (!volume)
        return unmountedDetails(path);
    const std::optional<struct statvfs> info = statOf(path);
    if (!info)
        return std::nullopt;
    VolumeDetails details;
    details.label = m_drives.labelOf(volume->device);
    details.maxComponentLength = quint32(info->f_namemax);
    details.flags = quint32(info->f_flag);
    details.fileSystem = volume->fsType;
    details.serial = quint32(info->f_fsid & 0xffffffffu);
    static const QStringList serialSystems = {"vfat", "exfat", "ntfs", "ntfs3", "fuseblk"};
    if (serialSystems.contains(volume->fsType)) {
        if (const std::optional<quint32> serial = serialFromUuid(uuidOf(volume->device)))
            details.serial = *serial;
    }
    return details;
}

std::optional<VolumeSpace> LinuxVolumes::space(const QString& path) const
{
    const std::optional<struct statvfs> info = statOf(path);
    if (!info)
        return std::nullopt;
    return VolumeSpace{quint64(info->f_blocks) * info->f_frsize,
                       quint64(info->f_bfree) * info->f_frsize};
}

} // namespace nubo::platform
