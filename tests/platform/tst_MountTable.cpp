// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DriveInfo.h"
#include "platform/MountTable.h"

#include <QTest>

using namespace nubo::platform;

namespace {

const QByteArray kMountInfo =
    "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
    "23 22 0:5 / /proc rw shared:2 - proc proc rw\n"
    "24 22 0:21 / /sys rw shared:3 - sysfs sysfs rw\n"
    "25 22 0:6 / /dev rw shared:4 - devtmpfs udev rw\n"
    "26 22 0:22 / /tmp rw shared:5 - tmpfs tmpfs rw\n"
    "27 22 11:0 / /media/ana/MI\\040CD ro shared:6 - iso9660 /dev/sr0 ro\n"
    "28 22 8:17 / /media/usb rw shared:7 - vfat /dev/sdb1 rw\n"
    "29 22 0:40 / /mnt/red rw shared:8 - nfs4 server:/x rw\n"
    "30 22 0:41 / /home/ana/nube rw shared:9 - fuse.sshfs ana@h: rw\n"
    "31 22 8:2 / /home rw shared:10 - ext4 /dev/sda2 rw\n"
    "garbage line without the separator\n"
    "32 22 8:3 / /home rw shared:11 - xfs /dev/sda3 rw\n";

} // namespace

class TestMountTable final : public QObject
{
    Q_OBJECT
private slots:
    // The longest mount point holding a path is its volume, and the mount gives its type.
    void pathsFindTheirVolumeAndType_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("prefix");
        QTest::addColumn<int>("type");
        QTest::newRow("optical, blank in the mount point")
            << "/media/ana/MI CD/disco/a.mp3"
            << "/media/ana/MI CD" << int(DriveType::CdRom);
        QTest::newRow("nested sshfs") << "/home/ana/nube/x.mp3"
                                      << "/home/ana/nube" << int(DriveType::Remote);
        QTest::newRow("tmpfs") << "/tmp/a.mp3"
                               << "/tmp" << int(DriveType::RamDisk);
        QTest::newRow("prefix is not a folder boundary") << "/homework/a.mp3"
                                                         << "" << int(DriveType::Fixed);
    }
    void pathsFindTheirVolumeAndType()
    {
        QFETCH(QString, path);
        const MountTable table = MountTable::parse(kMountInfo);
        const MountEntry* volume = table.volumeOf(path);
        QVERIFY(volume);
        QTEST(MountTable::prefixOf(volume->mountPoint), "prefix");
        QTEST(int(MountTable::typeOf(*volume)), "type");
    }

    void theDriveListOffersWhatAFileManagerShows()
    {
        const QByteArray desktop =
            kMountInfo + "40 22 0:23 / /dev/shm rw - tmpfs tmpfs rw\n"
                         "41 22 0:24 / /run/user/1000 rw - tmpfs tmpfs rw\n"
                         "42 22 0:25 / /sys/fs/cgroup rw - cgroup2 cgroup2 rw\n"
                         "43 22 7:1 / /snap/core/123 ro - squashfs /dev/loop1 ro\n"
                         "44 22 8:4 / /boot/efi rw - vfat /dev/sda4 rw\n"
                         "45 22 8:33 / /run/media/ana/PENDRIVE rw - exfat /dev/sdc1 rw\n"
                         "46 22 8:5 /hosts /etc/hosts rw - ext4 /dev/sda5 rw\n"
                         "47 22 0:26 / /run/user/1000/gvfs rw - fuse.gvfsd-fuse gvfsd-fuse rw\n"
                         "48 22 8:6 / /var/home rw - btrfs /dev/sda6 rw\n"
                         "49 22 8:7 / /data rw - ext4 /dev/sda7 rw\n";
        const MountTable table = MountTable::parse(desktop);
        QStringList points;
        // A live session's home on RAM: its volume is offered all the same.
        for (const MountEntry& e : table.offered(QStringLiteral("/tmp/ana")))
            points.append(e.mountPoint);
        QCOMPARE(points, (QStringList{"/", "/tmp", "/media/ana/MI CD", "/media/usb", "/mnt/red",
                                      "/home/ana/nube", "/home", "/run/media/ana/PENDRIVE",
                                      "/var/home", "/data"}));
        // Hidden places still give paths their drive; pseudo file systems are no drive at all,
        // and the later of two mounts on one point wins.
        QCOMPARE(MountTable::prefixOf(table.volumeOf("/dev/shm/x")->mountPoint), "/dev/shm");
        QCOMPARE(table.volumeOf("/proc/1")->mountPoint, "/");
        QCOMPARE(table.byMountPoint(QStringLiteral("/home"))->fsType, QStringLiteral("xfs"));
    }

    void driveListText()
    {
        DriveInfo drive{"/data", {}, "ext4", QStringLiteral("Música"), DriveType::Fixed, true};
        QCOMPARE(drive.listText(), QStringLiteral("/data [Música]"));
        drive.type = DriveType::CdRom; // a disc's label is not shown
        QCOMPARE(drive.listText(), QStringLiteral("/data"));
        drive = {{}, QStringLiteral("/dev/sr1"), {}, {}, DriveType::CdRom, false};
        QCOMPARE(drive.listText(), QStringLiteral("/dev/sr1"));
    }
};

QTEST_GUILESS_MAIN(TestMountTable)
#include "tst_MountTable.moc"
