// SPDX-License-Identifier: GPL-3.0-or-later
#include "SearchFakes.h"

#include <QTest>

using namespace nubo;

class TestCdromDrives final : public QObject
{
    Q_OBJECT

    struct Rig : test::SearchRig
    {
        platform::FakeDirectoryReader reader;
        Rig() : test::SearchRig(reader)
        {
            host.isFile = [](const QString&) { return true; };
            drives.add("/", platform::DriveType::Fixed, "sistema");
            drives.add("/media/usb", platform::DriveType::Removable);
            window.drive = "/ [sistema]";
            window.folder = "/";
        }
        void addCd(const QString& mountPoint)
        {
            drives.add(mountPoint, platform::DriveType::CdRom);
            drives.list.last().device = "/dev/sr" + QString::number(drives.list.size());
            reader.addFolder(mountPoint + "/", {"pista.mp3"});
            window.list.refresh();
        }
    };

private slots:
    void countingRebuildsTheChooserList()
    {
        Rig rig;
        rig.chooser.drives = {"viejo"};
        QCOMPARE(rig.cdrom.CountCdromDrives(), 0);
        QVERIFY(rig.chooser.drives.isEmpty());
        rig.addCd("/media/cdrom");
        rig.addCd("/media/cdrom1");
        QCOMPARE(rig.cdrom.CountCdromDrives(), 2);
        QCOMPARE(rig.chooser.drives, (QStringList{"/media/cdrom", "/media/cdrom1"}));
        rig.controller.Command2Click(); // with two drives the command does nothing
        QVERIFY(rig.dialogs.asked.isEmpty() && rig.host.rows.isEmpty() && !rig.chooser.shown);
    }

    void withOneDriveTheWholeDiscIsSearched()
    {
        Rig rig;
        rig.addCd("/media/cdrom");
        rig.dialogs.inputAnswers.enqueue(QStringLiteral("Mi CD"));
        rig.window.folder = "/media/cdrom";
        rig.controller.Command2Click();
        QCOMPARE(rig.dialogs.asked.size(), 1);
        QCOMPARE(rig.dialogs.asked[0].kind, QStringLiteral("input"));
        QCOMPARE(rig.window.drive, QStringLiteral("/media/cdrom"));
        QCOMPARE(rig.host.rows, QStringList{"/media/cdrom/pista.mp3"});
        QCOMPARE(rig.groupName(), QStringLiteral("Mi CD"));
        QVERIFY(!rig.chooser.shown);
    }
};

QTEST_GUILESS_MAIN(TestCdromDrives)
#include "tst_CdromDrives.moc"
