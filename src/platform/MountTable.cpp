// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MountTable.h"

#include <QSet>
#include <QStringList>

namespace nubo::platform {

namespace {

// mountinfo escapes blanks, tabs, newlines and backslashes as \ooo octal sequences.
QString unescape(const QByteArray& field)
{
    QByteArray out;
    out.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size()) {
            bool ok = false;
            const int code = field.mid(i + 1, 3).toInt(&ok, 8);
            if (ok) {
                out.append(char(code));
                i += 3;
                continue;
            }
        }
        out.append(field[i]);
    }
    return QString::fromUtf8(out);
}

} // namespace

bool MountTable::isPseudo(const QString& fsType)
{
    static const QSet<QString> pseudo = {
        "proc",     "sysfs",   "cgroup",      "cgroup2",    "devpts", "devtmpfs",
        "mqueue",   "debugfs", "tracefs",     "securityfs", "pstore", "bpf",
        "configfs", "fusectl", "binfmt_misc", "hugetlbfs",  "autofs", "nsfs"};
    return pseudo.contains(fsType);
}

bool MountTable::isSystemPlace(const MountEntry& entry)
{
    // File systems that hold the system's own state, RAM or packaged programs.
    static const QSet<QString> systemTypes = {
        "tmpfs",     "ramfs",    "overlay",    "efivarfs",        "rpc_pipefs", "nfsd",
        "selinuxfs", "squashfs", "fuse.lxcfs", "fuse.gvfsd-fuse", "fuse.portal"};
    static const QStringList systemFolders = {"/dev",  "/proc",     "/sys",     "/run",
                                              "/snap", "/var/snap", "/var/lib", "/boot",
                                              "/etc",  "/tmp",      "/var/tmp"};
    static const QString userMedia = QStringLiteral("/run/media/");
    if (systemTypes.contains(entry.fsType))
        return true;
    if (entry.mountPoint.startsWith(userMedia))
        return false;
    for (const QString& folder : systemFolders) {
        if (entry.mountPoint == folder || entry.mountPoint.startsWith(folder + QLatin1Char('/')))
            return true;
    }
    return false;
}

QList<MountEntry> MountTable::offered(const QString& homePath) const
{
    const MountEntry* home = volumeOf(homePath);
    QList<MountEntry> list;
    for (const MountEntry& entry : m_entries) {
        const bool kept = entry.mountPoint == QLatin1String("/") ||
                          (home && entry.mountPoint == home->mountPoint) || !isSystemPlace(entry);
        if (kept)
            list.append(entry);
    }
    return list;
}

MountTable MountTable::parse(const QByteArray& mountinfo)
{
    MountTable table;
    for (const QByteArray& line : mountinfo.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        const qsizetype dash = fields.indexOf("-");
        if (dash < 6 || dash + 2 >= fields.size())
            continue;
        MountEntry entry{unescape(fields[4]), unescape(fields[dash + 2]),
                         unescape(fields[dash + 1])};
        if (isPseudo(entry.fsType) || !entry.mountPoint.startsWith(QLatin1Char('/')))
            continue;
        // A later mount on the same point hides the earlier one.
        table.m_entries.removeIf(
            [&](const MountEntry& e) { return e.mountPoint == entry.mountPoint; });
        table.m_entries.append(entry);
    }
    return table;
}

const MountEntry* MountTable::volumeOf(const QString& absolutePath) const
{
    const MountEntry* best = nullptr;
    for (const MountEntry& e : m_entries) {
        const QString prefix = prefixOf(e.mountPoint);
        const bool holds =
            absolutePath == e.mountPoint || absolutePath.startsWith(prefix + QLatin1Char('/'));
        if (holds && (!best || e.mountPoint.size() > best->mountPoint.size()))
            best = &e;
    }
    return best;
}

const MountEntry* MountTable::byMountPoint(const QString& mountPoint) const
{
    for (const MountEntry& e : m_entries) {
        if (e.mountPoint == mountPoint)
            return &e;
    }
    return nullptr;
}

QString MountTable::prefixOf(const QString& mountPoint)
{
    QString prefix = mountPoint;
    while (prefix.endsWith(QLatin1Char('/')))
        prefix.chop(1);
    return prefix;
}

bool MountTable::isOpticalDevice(const QString& device)
{
    return device.startsWith(QLatin1String("/dev/sr")) ||
           device.startsWith(QLatin1String("/dev/scd"));
}

DriveType MountTable::typeOf(const MountEntry& entry)
{
    static const QSet<QString> network = {"nfs", "nfs4", "cifs", "smb3", "9p", "fuse.sshfs"};
    if (isOpticalDevice(entry.device) || entry.fsType == QLatin1String("iso9660") ||
        entry.fsType == QLatin1String("udf"))
        return DriveType::CdRom;
    if (network.contains(entry.fsType))
        return DriveType::Remote;
    if (entry.fsType == QLatin1String("tmpfs") || entry.fsType == QLatin1String("ramfs"))
        return DriveType::RamDisk;
    return DriveType::Fixed;
}

} // namespace nubo::platform
