// SPDX-License-Identifier: GPL-3.0-or-later
#include "SearchFakes.h"

#include <QTest>

using namespace nubo;

class TestSearchWindowController final : public QObject
{
    Q_OBJECT

    struct Rig : test::SearchRig
    {
        platform::FakeDirectoryReader reader;
        int cancelFlags = 0;
        Rig() : test::SearchRig(reader)
        {
            host.isFile = [](const QString&) { return true; };
            drives.add("/", platform::DriveType::Fixed);
            window.drive = "/";
            window.folder = "/m";
            reader.addFolder("/m/", {"a.mp3", "b.b"});
            controller.setCancelFlagRaiser([this] { ++cancelFlags; });
        }
    };

private slots:
    void theMaskNeedsADot_data()
    {
        QTest::addColumn<QString>("mask");
        QTest::addColumn<bool>("rejected");
        QTest::newRow("no dot") << "mp3" << true;
        QTest::newRow("any text with a dot") << "a.b" << false;
        QTest::newRow("a dot alone") << "." << false;
        QTest::newRow("several patterns, each with a dot") << "*.flac; *.ogg" << false;
        QTest::newRow("one pattern without a dot") << "*.flac;ogg" << true;
        QTest::newRow("separators alone") << " ; ;" << true;
    }
    void theMaskNeedsADot()
    {
        QFETCH(QString, mask);
        QFETCH(bool, rejected);
        Rig rig;
        rig.window.mask = mask;
        rig.controller.Command1Click();
        QCOMPARE(rig.controller.MaskRejected, rejected);
        QCOMPARE(rig.cancelFlags, 1);
        QVERIFY(!rig.window.shown);
        if (rejected) {
            QCOMPARE(rig.window.mask, QStringLiteral("*.mp3"));
            QCOMPARE(rig.dialogs.asked.size(), 1); // the mask's warning, no group question
            QVERIFY(rig.caption().isEmpty());
        } else {
            QCOMPARE(rig.window.mask, mask);
            QCOMPARE(rig.dialogs.asked[0].kind, QStringLiteral("input"));
        }
    }

    void aRejectedMaskStopsTheCdSearchToo()
    {
        Rig rig;
        rig.window.mask = "mp3";
        rig.controller.Command2Click();
        QCOMPARE(rig.dialogs.asked.size(), 1);
        QVERIFY(rig.window.shown); // the CD-ROM command does not hide the window
    }
};

QTEST_GUILESS_MAIN(TestSearchWindowController)
#include "tst_SearchWindowController.moc"
