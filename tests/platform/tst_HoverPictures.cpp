// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/HoverPictures.h"

#include <QApplication>
#include <QDir>
#include <QEnterEvent>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>

using namespace nubo;
using Face = platform::HoverPictures::Face;

namespace {

// Each face is one colour, so a button's picture tells which face it shows.
const QList<std::pair<QString, QColor>> kPictures = {
    {"off", Qt::red}, {"on", Qt::green}, {"hit", Qt::blue}};

QString shown(const QLabel& button)
{
    const QColor colour = button.pixmap().toImage().pixelColor(0, 0);
    for (const auto& [name, picture] : kPictures) {
        if (colour == picture)
            return name;
    }
    return QStringLiteral("none");
}

} // namespace

class TestHoverPictures final : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

private slots:
    void initTestCase()
    {
        QVERIFY(QDir(m_folder.path()).mkdir("bitmap"));
        for (const auto& [name, colour] : kPictures) {
            QImage picture(4, 4, QImage::Format_RGB32);
            picture.fill(colour);
            QVERIFY(picture.save(m_folder.filePath("bitmap/" + name + ".png")));
        }
    }

    // Steps: "enter N", "leave N" and "hit N" on button N, "move" over the bare window.
    void faces_data()
    {
        QTest::addColumn<bool>("withWindow");
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QStringList>("faces");
        QTest::newRow("added off") << true << QStringList{} << QStringList{"off", "off"};
        QTest::newRow("entering one puts the other off")
            << true << QStringList{"enter 0", "enter 1"} << QStringList{"off", "on"};
        QTest::newRow("leaving keeps it lit")
            << true << QStringList{"enter 0", "leave 0"} << QStringList{"on", "off"};
        QTest::newRow("the bare window puts all off")
            << true << QStringList{"enter 0", "hit 1", "move"} << QStringList{"off", "off"};
        QTest::newRow("a hit leaves the others")
            << true << QStringList{"enter 0", "hit 1"} << QStringList{"on", "hit"};
        QTest::newRow("without a window, leaving puts it off")
            << false << QStringList{"enter 0", "leave 0", "enter 1"} << QStringList{"off", "on"};
    }

    void faces()
    {
        QFETCH(bool, withWindow);
        QFETCH(QStringList, steps);
        QWidget window;
        std::array<QLabel*, 2> buttons{new QLabel(&window), new QLabel(&window)};
        platform::AppFolder app(m_folder.path());
        platform::HoverPictures hover(app, withWindow ? &window : nullptr);
        for (QLabel* button : buttons)
            hover.add(button, "\\bitmap\\off.png", "\\bitmap\\on.png", "\\bitmap\\hit.png");
        for (const QString& step : steps) {
            QLabel* button = buttons[step.back() == u'1' ? 1 : 0];
            if (step == "move") {
                QMouseEvent move(QEvent::MouseMove, QPointF(1, 1), QPointF(1, 1), Qt::NoButton,
                                 Qt::NoButton, Qt::NoModifier);
                QApplication::sendEvent(&window, &move);
            } else if (step.startsWith("enter")) {
                QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
                QApplication::sendEvent(button, &enter);
            } else if (step.startsWith("leave")) {
                QEvent leave(QEvent::Leave);
                QApplication::sendEvent(button, &leave);
            } else {
                hover.show(button, Face::Hit);
            }
        }
        QTEST((QStringList{shown(*buttons[0]), shown(*buttons[1])}), "faces");
    }

    // The pictures are read when a button is added: files gone later change nothing, and a
    // picture missing from the start leaves the button's picture as it was.
    void picturesAreReadOnce()
    {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir("bitmap"));
        QVERIFY(QFile::copy(m_folder.filePath("bitmap/on.png"), folder.filePath("bitmap/on.png")));
        QWidget window;
        auto* button = new QLabel(&window);
        button->setPixmap(QPixmap(m_folder.filePath("bitmap/hit.png")));
        platform::AppFolder app(folder.path());
        platform::HoverPictures hover(app, &window);
        hover.add(button, "\\bitmap\\missing.png", "\\bitmap\\ON.PNG");
        QVERIFY(QFile::remove(folder.filePath("bitmap/on.png")));
        hover.show(button, Face::On);
        QCOMPARE(shown(*button), QStringLiteral("on"));
        hover.showAllOff();
        QCOMPARE(shown(*button), QStringLiteral("on"));
    }
};

QTEST_MAIN(TestHoverPictures)
#include "tst_HoverPictures.moc"
