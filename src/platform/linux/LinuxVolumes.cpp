// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxVolumes.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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
    const std::optional<struct statvfs> info = statOf(path);
    const std::optional<MountEntry> volume = m_drives.volumeOf(QFileInfo(path).absoluteFilePath());
    if (!info || !volume)
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
