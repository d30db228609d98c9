// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeFrameWindows.h"
#include "frame/ui/Form8.h"
#include "frame/ui/QtNotifyArea.h"
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
    void activationReasons_data()
    {
        QTest::addColumn<int>("reason");
        QTest::addColumn<QList<int>>("messages");
        QTest::newRow("click") << int(QSystemTrayIcon::Trigger) << QList<int>{513, 514};
        QTest::newRow("double click") << int(QSystemTrayIcon::DoubleClick) << QList<int>{515};
        QTest::newRow("context") << int(QSystemTrayIcon::Context) << QList<int>{517};
    }

    void activationReasons()
    {
        QFETCH(int, reason);
        QTEST(trayMessagesFor(QSystemTrayIcon::ActivationReason(reason)), "messages");
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
