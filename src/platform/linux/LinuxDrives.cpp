// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxDrives.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace nubo::platform {

LinuxDrives::LinuxDrives(QString systemRoot) : m_root(std::move(systemRoot))
{
    if (m_root.endsWith(QLatin1Char('/')))
        m_root.chop(1);
}

QString LinuxDrives::systemPath(const QString& path) const
{
    return m_root + path;
}

const MountTable& LinuxDrives::table(bool fresh) const
{
    if (fresh || !m_age.isValid() || m_age.elapsed() > 2000) {
        QFile file(systemPath(QStringLiteral("/proc/self/mountinfo")));
        if (file.open(QIODevice::ReadOnly))
            m_table = MountTable::parse(file.readAll());
        m_age.start();
    }
    return m_table;
}

bool LinuxDrives::isRemovable(const QString& device) const
{
    if (!device.startsWith(QLatin1String("/dev/")))
        return false;
    const QString name = QFileInfo(QFileInfo(systemPath(device)).canonicalFilePath()).fileName();
    QString sysPath =
        QFileInfo(systemPath(QStringLiteral("/sys/class/block/") + name)).canonicalFilePath();
    if (sysPath.isEmpty())
        return false;
    if (QFileInfo::exists(sysPath + QStringLiteral("/partition")))
        sysPath = QFileInfo(sysPath).path();
    QFile flag(sysPath + QStringLiteral("/removable"));
    return flag.open(QIODevice::ReadOnly) && flag.readAll().trimmed() == "1";
}

QString LinuxDrives::labelOf(const QString& device) const
{
    const QString target = QFileInfo(systemPath(device)).canonicalFilePath();
    if (target.isEmpty())
        return {};
    const QDir byLabel(systemPath(QStringLiteral("/dev/disk/by-label")));
    for (const QFileInfo& link : byLabel.entryInfoList(QDir::System | QDir::Files)) {
        if (link.canonicalFilePath() != target)
            continue;
        // udev escapes blanks and other bytes as \xHH.
        QString label = link.fileName();
        QByteArray bytes;
        for (qsizetype i = 0; i < label.size(); ++i) {
            if (label.mid(i, 2) == QLatin1String("\\x") && i + 3 < label.size()) {
                bytes.append(char(label.mid(i + 2, 2).toInt(nullptr, 16)));
                i += 3;
            } else {
                bytes.append(label.mid(i, 1).toUtf8());
            }
        }
        return QString::fromUtf8(bytes);
    }
    return {};
}

DriveInfo LinuxDrives::describe(const MountEntry& entry) const
{
    DriveInfo info;
    info.mountPoint = entry.mountPoint;
    info.device = entry.device;
    info.fsType = entry.fsType;
    info.type = MountTable::typeOf(entry);
    if (info.type == DriveType::Fixed && isRemovable(entry.device))
        info.type = DriveType::Removable;
    info.label = labelOf(entry.device);
    return info;
}

QList<DriveInfo> LinuxDrives::drives() const
{
    QList<DriveInfo> list;
    QStringList mountedDevices;
    // The list is read seldom and must show a disc mounted a moment ago.
    for (const MountEntry& entry : table(true).offered(QDir::homePath())) {
        list.append(describe(entry));
        mountedDevices.append(QFileInfo(systemPath(entry.device)).canonicalFilePath());
    }
    const QDir dev(systemPath(QStringLiteral("/dev")));
    const QStringList optical = dev.entryList({QStringLiteral("sr*"), QStringLiteral("scd*")},
                                              QDir::System | QDir::Files, QDir::Name);
    for (const QString& name : optical) {
        const QString node = QStringLiteral("/dev/") + name;
        if (mountedDevices.contains(QFileInfo(systemPath(node)).canonicalFilePath()))
            continue;
        DriveInfo info;
        info.device = node;
        info.type = DriveType::CdRom;
        info.hasMedium = false;
        list.append(info);
    }
    return list;
}

QString LinuxDrives::drivePrefixOf(const QString& absolutePath) const
{
    const MountEntry* volume = table().volumeOf(absolutePath);
    return volume ? MountTable::prefixOf(volume->mountPoint) : QString();
}

std::optional<MountEntry> LinuxDrives::volumeOf(const QString& path) const
{
    const MountEntry* volume = table().volumeOf(path);
    return volume ? std::optional<MountEntry>(*volume) : std::nullopt;
}

DriveType LinuxDrives::driveType(const QString& drive) const
{
    // Only a text that ends like a labelled entry needs the drive list to be read.
    const QString text =
        drive.endsWith(QLatin1Char(']')) ? pathOfDriveText(drives(), drive) : drive;
    if (MountTable::isOpticalDevice(text) && QFileInfo::exists(systemPath(text)))
        return DriveType::CdRom;
    QString mountPoint = MountTable::prefixOf(text);
    if (mountPoint.isEmpty())
        mountPoint = QStringLiteral("/");
    const MountEntry* entry = table().byMountPoint(mountPoint);
    return entry ? describe(*entry).type : DriveType::NoRootDir;
}

} // namespace nubo::platform
