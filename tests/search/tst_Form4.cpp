// SPDX-License-Identifier: GPL-3.0-or-later
#include "SearchFakes.h"
#include "search/ui/Form4.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTest>

#include "WindowControl.h"

using nubo::test::control;

using namespace nubo;

class TestForm4 final : public QObject
{
    Q_OBJECT

    struct Rig : test::SearchRig
    {
        platform::FakeDirectoryReader reader;
        platform::AppFolder app{qEnvironmentVariable("NUBO_APP_DIR")};
        search::Form4 form{app};
        search::CdromDrives formDrives{window, form, drives, dialogs, engine};
        Rig() : test::SearchRig(reader)
        {
            host.isFile = [](const QString&) { return true; };
            drives.add("/", platform::DriveType::Fixed);
            drives.add("/media/cdrom", platform::DriveType::CdRom);
            drives.add("/media/cdrom1", platform::DriveType::CdRom);
            window.list.refresh();
            reader.addFolder("/media/cdrom1/", {"pista.mp3"});
            form.setCdromDrives(&formDrives);
        }
    };

private slots:
    void theButtonSearchesTheTypedDriveOrRefusesIt()
    {
        Rig rig;
        search::Form4& f = rig.form;
        f.show();
        control<QComboBox>(f, "Combo1")->setEditText("z:");
        QTest::mouseClick(control<QLabel>(f, "Command1"), Qt::LeftButton);
        QCOMPARE(rig.dialogs.asked.size(), 1);
        QCOMPARE(rig.dialogs.asked[0].title, QStringLiteral("Path invalido"));
        QVERIFY(f.isVisible());

        rig.dialogs.inputAnswers.enqueue(QStringLiteral("Disco 2"));
        rig.window.folder = "/media/cdrom1";
        control<QComboBox>(f, "Combo1")->setEditText("/media/cdrom1");
        QTest::mouseClick(control<QLabel>(f, "Command1"), Qt::LeftButton);
        QCOMPARE(rig.host.rows, QStringList{"/media/cdrom1/pista.mp3"});
    }
};

QTEST_MAIN(TestForm4)
#include "tst_Form4.moc"
