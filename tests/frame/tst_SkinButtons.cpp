#include "frame/HotCircle.h"
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
