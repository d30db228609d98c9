// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxOpticalTray.h"

#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"

using nubo::platform::LinuxOpticalTray;

namespace {

const QByteArray kMountInfo = "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
                              "23 22 0:5 / /proc rw shared:2 - proc proc rw\n"
                              "25 22 8:17 / /media/ana/USB rw shared:4 - vfat /dev/sdb1 rw\n";

} // namespace

// The mount path as a disc takes it: the disk service is asked, then the mount table read.
// A plain file stands in for the device node: it holds no audio disc.
class TestLinuxOpticalTray final : public QObject
{
    Q_OBJECT
private slots:
    void mountPointComesFromTheTable_data()
    {
        QTest::addColumn<bool>("serviceMounts");
        QTest::addColumn<QString>("mountPoint");
        QTest::newRow("the service mounts it") << true << "/media/ana/DISCO 1";
        QTest::newRow("the service refuses") << false << QString();
    }
    void mountPointComesFromTheTable()
    {
        QFETCH(bool, serviceMounts);
        QTemporaryDir dir;
        const QString device = nubo::test::writtenFile(dir.filePath("sr0"), {});
        const QString table = nubo::test::writtenFile(dir.filePath("mountinfo"), kMountInfo);
        QStringList asked;
        const auto udisks = [&](const QString& node) {
            asked.append(node);
            if (serviceMounts)
                QVERIFY(nubo::test::writeFile(
                    table, kMountInfo + "40 22 11:0 / /media/ana/DISCO\\0401 ro - iso9660 " +
                               device.toUtf8() + " ro\n"));
        };
        LinuxOpticalTray tray(table, udisks);
        QTEST(tray.mountMedium(device), "mountPoint");
        QCOMPARE(asked, QStringList{device});
    }
};

QTEST_GUILESS_MAIN(TestLinuxOpticalTray)
#include "tst_LinuxOpticalTray.moc"
