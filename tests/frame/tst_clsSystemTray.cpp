// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeFrameWindows.h"
#include "frame/ui/Form8.h"
#include "frame/ui/clsSystemTray.h"

#include <QAction>
#include <QMenu>
#include <QTest>

#include "WindowControl.h"

using nubo::test::control;

using namespace nubo::frame;

class TestSystemTray final : public QObject
{
    Q_OBJECT
private slots:
    // Each of Qt's activation reasons raises the mouse-button events it stands for, in order.
    void activationReasons_data()
    {
        QTest::addColumn<int>("reason");
        QTest::addColumn<QStringList>("events");
        QTest::newRow("click") << int(QSystemTrayIcon::Trigger)
                               << QStringList{"LButtonDown", "LButtonUp"};
        QTest::newRow("double click")
            << int(QSystemTrayIcon::DoubleClick) << QStringList{"LButtonDblClk"};
        QTest::newRow("context") << int(QSystemTrayIcon::Context) << QStringList{"RButtonUp"};
        QTest::newRow("middle click") << int(QSystemTrayIcon::MiddleClick) << QStringList{};
    }

    void activationReasons()
    {
        QFETCH(int, reason);
        FakeNotifyArea area;
        clsSystemTray tray(area);
        QStringList events;
        connect(&tray, &clsSystemTray::LButtonDown, this, [&] { events << "LButtonDown"; });
        connect(&tray, &clsSystemTray::LButtonUp, this, [&] { events << "LButtonUp"; });
        connect(&tray, &clsSystemTray::LButtonDblClk, this, [&] { events << "LButtonDblClk"; });
        connect(&tray, &clsSystemTray::RButtonUp, this, [&] { events << "RButtonUp"; });
        area.handler(QSystemTrayIcon::ActivationReason(reason));
        QTEST(events, "events");
    }

    // Before the icon is added its tip and picture are only kept; after, each change shows
    // at once, with the tip cut as the notification area shows it.
    void changesShowOnceTheIconIsAdded()
    {
        FakeNotifyArea area;
        clsSystemTray tray(area);
        tray.setToolTipText(QStringLiteral("Nubo Beta Version 1.5!!!"));
        tray.setIcon(QIcon());
        QVERIFY(area.messages.isEmpty());
        tray.AddIconToSystemTray();
        tray.setToolTipText(QString(70, u'n'));
        QCOMPARE(area.messages, (QList<NotifyMessage>{NotifyMessage::Add, NotifyMessage::Modify}));
        QCOMPARE(area.tips, (QStringList{"Nubo Beta Version 1.5!!!", QString(63, u'n')}));
        tray.RemoveIconFromSystemTray();
        QVERIFY(!tray.isIconVisible());
    }

    void menuEntriesReachTheWindows()
    {
        FakeFrameWindows windows;
        Form8 form(windows);
        for (QAction* action : control<QMenu>(form, "menu")->actions())
            action->trigger();
        QCOMPARE(windows.calls, (QStringList{"show Author", "show Options", "list exit", "end"}));
        windows.calls.clear();
        windows.listExitGoesOn = false; // the list's save failed: its rows and the program stay
        control<QAction>(form, "quit")->trigger();
        QCOMPARE(windows.calls, QStringList{"list exit"});
    }
};

QTEST_MAIN(TestSystemTray)
#include "tst_clsSystemTray.moc"
