// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxDrives.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"

using namespace nubo::platform;

namespace {

// A machine's mount table: the root disk, pseudo file systems, a labelled USB stick, a
// mounted data disc and a RAM disk.
const QByteArray kMountInfo =
    "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
    "23 22 0:5 / /proc rw shared:2 - proc proc rw\n"
    "24 22 0:21 / /sys rw shared:3 - sysfs sysfs rw\n"
    "25 22 0:6 / /dev/shm rw shared:4 - tmpfs tmpfs rw\n"
    "27 22 11:1 / /media/ana/DATOS ro shared:6 - iso9660 /dev/sr1 ro\n"
    "28 22 8:17 / /media/ana/M\\303\\232SICA rw shared:7 - vfat /dev/sdb1 rw\n";

using nubo::test::writeFile;

bool link(const QString& target, const QString& path)
{
    QDir().mkpath(QFileInfo(path).path());
    return QFile::link(target, path);
}

// The files LinuxDrives reads, laid out below `root` as udev and sysfs lay them out.
bool layOutSystem(const QString& root)
{
    const QString blocks = root + "/sys/devices/pci0/usb1/block";
    return writeFile(root + "/proc/self/mountinfo", kMountInfo) &&
           writeFile(root + "/dev/sda1", {}) && writeFile(root + "/dev/sdb1", {}) &&
           writeFile(root + "/dev/sr0", {}) && writeFile(root + "/dev/sr1", {}) &&
           writeFile(blocks + "/sdb/removable", "1\n") &&
           writeFile(blocks + "/sdb/sdb1/partition", "1") &&
           link("../../devices/pci0/usb1/block/sdb/sdb1", root + "/sys/class/block/sdb1") &&
           writeFile(root + "/sys/devices/pci0/sata/block/sda/removable", "0\n") &&
           writeFile(root + "/sys/devices/pci0/sata/block/sda/sda1/partition", "1") &&
           link("../../devices/pci0/sata/block/sda/sda1", root + "/sys/class/block/sda1") &&
           link("../../sdb1", root + "/dev/disk/by-label/M\\xc3\\x9aSICA\\x20X") &&
           link("../../sr1", root + "/dev/disk/by-label/DATOS");
}

const DriveInfo* find(const QList<DriveInfo>& drives, const QString& device)
{
    for (const DriveInfo& drive : drives)
        if (drive.device == device)
            return &drive;
    return nullptr;
}

} // namespace

class TestLinuxDrives final : public QObject
{
    Q_OBJECT
private slots:
    // What the drive list offers, with the types, labels and media the system files give.
    void drivesAndVolumesComeFromTheSystemFiles()
    {
        QTemporaryDir root;
        QVERIFY(layOutSystem(root.path()));
        const LinuxDrives linux(root.path());
        const QList<DriveInfo> drives = linux.drives();

        QStringList devices;
        for (const DriveInfo& drive : drives)
            devices.append(drive.device);
        QCOMPARE(devices, QStringList({"/dev/sda1", "/dev/sr1", "/dev/sdb1", "/dev/sr0"}));

        QCOMPARE(find(drives, "/dev/sda1")->type, DriveType::Fixed);
        const DriveInfo* usb = find(drives, "/dev/sdb1");
        QCOMPARE(usb->type, DriveType::Removable);
        QCOMPARE(usb->label + " " + usb->mountPoint, QStringLiteral("MÚSICA X /media/ana/MÚSICA"));
        QCOMPARE(find(drives, "/dev/sr1")->type, DriveType::CdRom);
        QCOMPARE(find(drives, "/dev/sr1")->label, QStringLiteral("DATOS"));
        // A drive with no disc mounted: listed, without a medium or a folder.
        const DriveInfo* empty = find(drives, "/dev/sr0");
        QVERIFY(empty->type == DriveType::CdRom && !empty->hasMedium &&
                empty->mountPoint.isEmpty());

        // Paths find their volume; device nodes and folders answer their drive type.
        QCOMPARE(linux.volumeOf("/media/ana/DATOS/pista1.mp3")->device, QStringLiteral("/dev/sr1"));
        QCOMPARE(linux.volumeOf("/home/ana/x.mp3")->device, QStringLiteral("/dev/sda1"));
        QCOMPARE(linux.driveType("/dev/sr0"), DriveType::CdRom);
        QCOMPARE(linux.driveType("/dev/sr7"), DriveType::NoRootDir); // no such drive
        QCOMPARE(linux.driveType("/media/ana/MÚSICA"), DriveType::Removable);
        QCOMPARE(linux.labelOf("/dev/sda1"), QString());
    }
};

QTEST_GUILESS_MAIN(TestLinuxDrives)
#include "tst_LinuxDrives.moc"
