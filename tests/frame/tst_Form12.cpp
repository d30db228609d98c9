#include "FakeFrameWindows.h"
#include "app/Options.h"
#include "frame/ui/Form12.h"
#include "frame/ui/Form8.h"
#include "frame/ui/WindowDirectory.h"
#include "frame/ui/clsSystemTray.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>

#include <numeric>

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
    app::Options options;
    FakeFrameWindows windows;
    FakeNotifyArea area;
    Form12 form{{app, options, windows, &area}};

    explicit Fixture(bool animations, bool skin = true)
    {
        options.setValue(app::Option::PermitirAnims, animations ? 1 : 0);
        form.loadButtonFaces();
        form.addTrayIcon();
        if (skin)
            form.loadSkin(app.resolve(QStringLiteral("\\bitmap\\conarrows.JPG")));
        form.fitToSkin();
        form.applyRegion();
    }
    void key(Qt::Key key) { QTest::keyClick(form.picMainSkin, key, Qt::ControlModifier); }
};

// Counts the 4-connected pieces of a region: rectangles that share an edge are joined.
int pieces(const QRegion& region)
{
    const QList<QRect> rects(region.begin(), region.end());
    std::vector<qsizetype> parent(std::size_t(rects.size()));
    std::iota(parent.begin(), parent.end(), 0);
    const auto root = [&parent](qsizetype i) {
        while (parent[std::size_t(i)] != i)
            i = parent[std::size_t(i)];
        return i;
    };
    qsizetype count = rects.size();
    for (qsizetype i = 0; i < rects.size(); ++i)
        for (qsizetype j = i + 1; j < rects.size(); ++j)
            if ((rects[i].adjusted(-1, 0, 1, 0).intersects(rects[j]) ||
                 rects[i].adjusted(0, -1, 0, 1).intersects(rects[j])) &&
                root(i) != root(j)) {
                parent[std::size_t(root(i))] = root(j);
                --count;
            }
    return int(count);
}

} // namespace

class TestForm12 final : public QObject
{
    Q_OBJECT
private slots:
    // The shipped skin cuts the window to one clean piece: no stray islands of key colour.
    void shippedSkinGivesOneCleanRegion()
    {
        Fixture f(false);
        const QRegion& region = f.form.region();
        QVERIFY(!region.isEmpty());
        QCOMPARE(pieces(region), 1);
        QVERIFY(region.boundingRect() != f.form.rect()); // clearly not a rectangle
        QVERIFY2(region.rectCount() < 1000, qPrintable(QString::number(region.rectCount())));
        for (QLabel* button : f.form.Picture)
            QVERIFY(region.contains(button->geometry()));
    }

    // Every picture named in the program's sources is shipped; the chooser's extensionless
    // name is not, deliberately.
    void shippedPictures()
    {
        const platform::AppFolder app(shippedResources());
        QStringList names;
        // "\\bitmap\\name" as the sources spell it.
        const QRegularExpression named(QStringLiteral("\"(\\\\\\\\bitmap\\\\\\\\[^\"%]+)\""),
                                       QRegularExpression::CaseInsensitiveOption);
        QDirIterator sources(qEnvironmentVariable("NUBO_SOURCE_DIR") + QStringLiteral("/src"),
                             {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
        while (sources.hasNext()) {
            QFile file(sources.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            for (const auto& m : named.globalMatch(QString::fromUtf8(file.readAll())))
                names << m.captured(1).replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
        }
        QVERIFY(names.contains(QStringLiteral("\\bitmap\\form4bot1")));
        names.removeAll(QStringLiteral("\\bitmap\\form4bot1"));
        QVERIFY2(names.size() > 25, qPrintable(names.join(' ')));
        for (int button = 1; button <= 5; ++button)
            for (int frame = 0; frame <= 6; ++frame)
                names << QStringLiteral("\\bitmap\\scene%1boton%2.jpg").arg(frame).arg(button);
        for (const QString& name : std::as_const(names))
            QVERIFY2(!QImage(app.resolve(name)).isNull(), qPrintable(name));
        QVERIFY(!QFileInfo::exists(app.resolve(QStringLiteral("\\bitmap\\form4bot1"))));
        QVERIFY(!QIcon(app.resolve(QStringLiteral("\\icons\\Nubologo.ico"))).isNull());
    }

    // The tray shows the picture it is given (the sheet window's icon), asked for even where
    // there is no notification area.
    void trayIconFromItsSource()
    {
        const platform::AppFolder app{shippedResources()};
        app::Options options;
        FakeFrameWindows windows;
        FakeNotifyArea area;
        int asked = 0;
        const auto source = [&asked] {
            ++asked;
            QPixmap red(16, 16);
            red.fill(Qt::red);
            return QIcon(red);
        };
        Form12 withTray({app, options, windows, &area, source});
        withTray.AddIcon();
        QCOMPARE(withTray.SystemTray->Icon().pixmap(16).toImage().pixelColor(8, 8),
                 QColor(Qt::red));
        Form12 withoutTray({app, options, windows, nullptr, source});
        withoutTray.AddIcon();
        QCOMPARE(asked, 2);
    }

    // Ctrl+S empties the list and ends the program at once, without a question.
    void ctrlSEnds()
    {
        Fixture f(false);
        f.key(Qt::Key_S);
        QCOMPARE(f.windows.calls, (QStringList{"empty list", "end"}));
        QCOMPARE(f.area.messages.constLast(), frame::NotifyMessage::Delete);
    }

    void buttonsOpenAndClose_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("window");
        QTest::addColumn<QStringList>("opening");
        QTest::newRow("Ctrl+L") << int(Qt::Key_L) << "List" << QStringList{"show List"};
        QTest::newRow("Ctrl+A") << int(Qt::Key_A) << "Search" << QStringList{"show Search"};
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

    void optionsOpenBesideTheMainWindow()
    {
        Fixture f(false);
        f.form.move(40, 30);
        f.key(Qt::Key_O);
        QCOMPARE(f.windows.calls, (QStringList{"move Options", "show Options"}));
        QCOMPARE(f.form.sceneCounters().counter(2), 6);
        f.form.playClosingFrames(2);
        QCOMPARE(f.form.sceneCounters().counter(2), 0);
    }

    // Without its skin the window keeps its size and its buttons show and answer presses.
    void withoutTheSkinTheButtonsShow()
    {
        Fixture f(false, false);
        f.form.show();
        QVERIFY(f.form.mask().isEmpty());
        for (int i = 0; i < 5; ++i) {
            const QLabel* button = f.form.Picture[std::size_t(i)];
            const QPoint centre = button->mapTo(&f.form, button->rect().center());
            QCOMPARE(f.form.childAt(centre), button);
        }
        QCOMPARE(f.form.childAt(f.form.PicMinimize->geometry().center()), f.form.PicMinimize);
        QTest::mouseClick(f.form.Picture[3], Qt::LeftButton, {}, QPoint(36, 42));
        QCOMPARE(f.windows.calls, QStringList{"show Search"});
    }

    // A double click is one press: the window it opens stays open.
    void doubleClickIsOnePress()
    {
        Fixture f(false);
        // What a window system sends: press, release, double click, release.
        QLabel* button = f.form.Picture[0];
        const QPointF at(33, 33);
        QTest::mouseClick(button, Qt::LeftButton, {}, at.toPoint());
        QMouseEvent second(QEvent::MouseButtonDblClick, at, button->mapToGlobal(at), Qt::LeftButton,
                           Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(button, &second);
        QTest::mouseRelease(button, Qt::LeftButton, {}, at.toPoint());
        QCOMPARE(f.windows.calls, QStringList{"show List"});
    }

    // A press outside the button's circle does nothing; inside, any button presses it.
    void onlyPressesInsideTheCircleCount()
    {
        Fixture f(false);
        QTest::mouseClick(f.form.Picture[0], Qt::LeftButton, {}, QPoint(1, 1));
        QTest::mouseClick(f.form.Picture[0], Qt::RightButton, {}, QPoint(33, 33));
        QCOMPARE(f.windows.calls, QStringList{"show List"});
    }

    void onlyCtrlCombinationsPress_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::newRow("Tab") << int(Qt::Key_Tab) << int(Qt::NoModifier);
        QTest::newRow("plain I") << int(Qt::Key_I) << int(Qt::NoModifier);
        QTest::newRow("Ctrl+B") << int(Qt::Key_B) << int(Qt::ControlModifier);
    }

    void onlyCtrlCombinationsPress()
    {
        QFETCH(int, key);
        QFETCH(int, modifiers);
        Fixture f(false);
        QTest::keyClick(f.form.picMainSkin, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QVERIFY(f.windows.calls.isEmpty());
    }

    // With its icon in a notification area, a close request hides the window and the icon
    // brings it back (without one, the program ends instead).
    void closeRequestHidesToTheIcon()
    {
        Fixture f(false);
        f.form.show();
        f.form.close();
        QVERIFY(f.windows.calls.isEmpty());
        QVERIFY(!f.form.isVisible() && f.area.isIconVisible());
        f.area.handler(515);
        QVERIFY(f.form.isVisible());
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

    void minimizeAndTheTrayIcon()
    {
        Fixture f(false);
        QCOMPARE(f.area.messages.constFirst(), frame::NotifyMessage::Add);
        frame::Form8 menu(f.windows);
        f.form.setTrayMenu(&menu);
        f.area.handler(517);
        QVERIFY(menu.menu->isVisible());
        f.area.handler(513);
        QVERIFY(!menu.menu->isVisible());
        f.form.show();
        f.form.picMinimizeMouseDown(QPointF(20, 10));
        QVERIFY(!f.form.isMinimized());
        f.form.picMinimizeMouseDown(QPointF(18, 10));
        QVERIFY(f.form.isMinimized());
        f.area.handler(513); // a single click on the icon restores it
        f.area.handler(514);
        QVERIFY(!f.form.isMinimized());
    }
};

QTEST_MAIN(TestForm12)
#include "tst_Form12.moc"
