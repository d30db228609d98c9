#include "frame/HotCircle.h"
#include "frame/SkinKeys.h"
#include "frame/SkinLayout.h"

#include <QTest>

#include <cmath>

using namespace nubo::frame;

class TestSkinButtons final : public QObject
{
    Q_OBJECT
private slots:
    void minimizeCircle_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<bool>("inside");
        QTest::newRow("(20, 10) is 72.5 away") << QPointF(20, 10) << false;
        QTest::newRow("(18, 10) is 42.5 away") << QPointF(18, 10) << true;
        QTest::newRow("exactly on the limit") << QPointF(11.5, 18.5) << true;
        QTest::newRow("corner of the box") << QPointF(0, 0) << false;
    }

    void minimizeCircle()
    {
        QFETCH(QPointF, point);
        QFETCH(bool, inside);
        QCOMPARE(kMinimizeCircle.contains(point), inside);
    }

    void keys_data()
    {
        QTest::addColumn<int>("character");
        QTest::addColumn<int>("button");
        QTest::addColumn<QPointF>("point");
        QTest::newRow("Ctrl+A search") << 1 << 4 << QPointF(39, 42);
        QTest::newRow("Ctrl+I author") << 9 << 5 << QPointF(18, 24);
        QTest::newRow("Ctrl+L list") << 12 << 1 << QPointF(30, 33);
        QTest::newRow("Ctrl+O options") << 15 << 2 << QPointF(39, 41);
        QTest::newRow("Ctrl+S exit") << 19 << 3 << QPointF(19, 19);
    }

    // Each key presses its button at a point that the button's own circle accepts.
    void keys()
    {
        QFETCH(int, character);
        QFETCH(int, button);
        QFETCH(QPointF, point);
        const std::optional<SkinKeyPress> press = skinKeyPress(character);
        QVERIFY(press);
        QCOMPARE(press->button, button);
        QCOMPARE(press->point, point);
        QVERIFY(kButtonCircles[std::size_t(button - 1)].contains(point));
    }

    void otherKeysDoNothing()
    {
        for (int character : {0, 2, 3, 13, 27, int('a'), int('S'), int('l')})
            QVERIFY2(!skinKeyPress(character), qPrintable(QString::number(character)));
    }

    // The picture boxes on the skin are large enough to hold their hot circles.
    void boxesHoldTheirCircles()
    {
        for (std::size_t i = 0; i < SkinLayout::buttons.size(); ++i) {
            const HotCircle& c = kButtonCircles[i];
            const QRect box = SkinLayout::buttons[i];
            const double r = std::sqrt(c.squaredRadius);
            QVERIFY(c.centreX + r <= box.width() && c.centreY + r <= box.height());
            QVERIFY(QRect(QPoint(), SkinLayout::skinSize).contains(box));
        }
    }
};

QTEST_GUILESS_MAIN(TestSkinButtons)
#include "tst_SkinButtons.moc"
