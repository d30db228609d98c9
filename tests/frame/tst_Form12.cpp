// SPDX-License-Identifier: GPL-3.0-or-later
#include "FakeFrameWindows.h"
#include "core/Options.h"
#include "frame/ui/Form12.h"
#include "frame/ui/Form8.h"
#include "frame/ui/WindowDirectory.h"

#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QScreen>
#include <QTest>

#include "WindowControl.h"

using nubo::test::control;

using namespace nubo;
using frame::Form12;

namespace {

QString shippedResources()
{
    return qEnvironmentVariable("NUBO_SOURCE_DIR") + QStringLiteral("/resources");
}

// The main window over the shipped pictures, with fakes for the other windows.
struct Fixture
{
    platform::AppFolder app{shippedResources()};
    core::Options options;
    FakeFrameWindows windows;
    FakeNotifyArea area;
    Form12 form{{app, options, windows, &area}};

    explicit Fixture(bool animations, bool skin = true)
    {
        options.setValue(core::Option::PermitirAnims, animations ? 1 : 0);
        form.loadButtonFaces();
        form.addTrayIcon();
        if (skin)
            form.loadSkin(app.resolve(QStringLiteral("\\bitmap\\conarrows.JPG")));
        form.fitToSkin();
        form.applyRegion();
    }
    void key(Qt::Key key)
    {
        QTest::keyClick(control<QLabel>(form, "picMainSkin"), key, Qt::ControlModifier);
    }
};

} // namespace

class TestForm12 final : public QObject
{
    Q_OBJECT
private slots:
    // Ctrl+S empties the list and ends the program at once, without a question; Tab is not
    // taken for Ctrl+I.
    void ctrlSEndsAndTabDoesNothing()
    {
        Fixture f(false);
        f.key(Qt::Key_S);
        QCOMPARE(f.windows.calls, (QStringList{"empty list", "end"}));
        QCOMPARE(f.area.messages.constLast(), frame::NotifyMessage::Delete);
        Fixture g(false); // Tab, which shares its character code with Ctrl+I, presses nothing
        QTest::keyClick(control<QLabel>(g.form, "picMainSkin"), Qt::Key_Tab);
        QVERIFY(g.windows.calls.isEmpty());
    }

    void buttonsOpenAndClose_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("window");
        QTest::addColumn<QStringList>("opening");
        QTest::newRow("Ctrl+L") << int(Qt::Key_L) << "List" << QStringList{"show List"};
        QTest::newRow("Ctrl+I") << int(Qt::Key_I) << "Author"
                                << QStringList{"move Author", "show Author"};
    }

    void buttonsOpenAndClose()
    {
        QFETCH(int, key);
        QFETCH(QString, window);
        QFETCH(QStringList, opening);
        Fixture f(true);
        f.key(Qt::Key(key));
        QVERIFY(f.windows.calls.isEmpty()); // the window opens after the frames
        QTRY_COMPARE(f.windows.calls, opening);
        f.key(Qt::Key(key));
        QTRY_COMPARE(f.windows.calls, opening + QStringList{"hide " + window});
    }

    // Without its skin the window keeps its size and its buttons show and answer presses.
    void withoutTheSkinTheButtonsShow()
    {
        Fixture f(false, false);
        f.form.show();
        QVERIFY(f.form.mask().isEmpty());
        for (int i = 0; i < 5; ++i) {
            const QLabel* button = control<QLabel>(f.form, "Picture" + std::to_string(i + 1));
            const QPoint centre = button->mapTo(&f.form, button->rect().center());
            QCOMPARE(f.form.childAt(centre), button);
        }
        QCOMPARE(f.form.childAt(control<QLabel>(f.form, "PicMinimize")->geometry().center()),
                 control<QLabel>(f.form, "PicMinimize"));
        QTest::mouseClick(control<QLabel>(f.form, "Picture4"), Qt::LeftButton, {}, QPoint(36, 42));
        QCOMPARE(f.windows.calls, QStringList{"show Search"});
    }

    // A double click is one press: the window it opens stays open. A press outside the
    // button's circle does nothing; inside, any button presses it.
    void onePressPerClickInsideTheCircle()
    {
        Fixture f(false);
        // What a window system sends: press, release, double click, release.
        QLabel* button = control<QLabel>(f.form, "Picture1");
        const QPointF at(33, 33);
        QTest::mouseClick(button, Qt::LeftButton, {}, at.toPoint());
        QMouseEvent second(QEvent::MouseButtonDblClick, at, button->mapToGlobal(at), Qt::LeftButton,
                           Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(button, &second);
        QTest::mouseRelease(button, Qt::LeftButton, {}, at.toPoint());
        QCOMPARE(f.windows.calls, QStringList{"show List"});
        QTest::mouseClick(control<QLabel>(f.form, "Picture2"), Qt::LeftButton, {}, QPoint(1, 1));
        QTest::mouseClick(button, Qt::RightButton, {}, at.toPoint());
        QCOMPARE(f.windows.calls, (QStringList{"show List", "hide List"}));
    }

    // Windows never shown are placed before the first opening effect reads their rectangle.
    void windowsArePlacedBeforeTheirFirstEffect()
    {
        frame::WindowDirectory windows;
        QWidget list;
        list.resize(300, 200);
        windows.connectWindow(frame::FrameWindow::List, &list);
        QCOMPARE(windows.windowRect(frame::FrameWindow::List).center(),
                 list.screen()->availableGeometry().center());
    }

    void minimizeCloseAndTheTrayIcon()
    {
        Fixture f(false);
        QCOMPARE(f.area.messages.constFirst(), frame::NotifyMessage::Add);
        frame::Form8 menu(f.windows);
        f.form.setTrayMenu(&menu);
        f.area.handler(QSystemTrayIcon::Context);
        QVERIFY(control<QMenu>(menu, "menu")->isVisible());
        f.area.handler(QSystemTrayIcon::Trigger);
        QVERIFY(!control<QMenu>(menu, "menu")->isVisible());
        f.form.show();
        f.form.picMinimizeMouseDown(QPointF(20, 10));
        QVERIFY(!f.form.isMinimized());
        f.form.picMinimizeMouseDown(QPointF(18, 10));
        QVERIFY(f.form.isMinimized());
        f.area.handler(QSystemTrayIcon::Trigger); // a single click on the icon restores it
        QVERIFY(!f.form.isMinimized());
        // With the icon in a notification area, a close request hides the window and the icon
        // brings it back (without one, the program ends instead).
        f.form.close();
        QVERIFY(f.windows.calls.isEmpty());
        QVERIFY(!f.form.isVisible() && f.area.isIconVisible());
        f.area.handler(QSystemTrayIcon::DoubleClick);
        QVERIFY(f.form.isVisible());
    }
};

QTEST_MAIN(TestForm12)
#include "tst_Form12.moc"
