#include "frame/GrowingRectangles.h"

#include <QTest>

using nubo::frame::growingRectangles;

class TestGrowingRectangles final : public QObject
{
    Q_OBJECT
private slots:
    void rectangles_data()
    {
        QTest::addColumn<QRect>("window");
        QTest::addColumn<int>("steps");
        QTest::addColumn<QList<QRect>>("expected");
        // 2.5 rounds to 2 and (10 - 2) / 2 = 4; 7.5 rounds to 8 and 1.0 stays 1.
        QTest::newRow("halves to even")
            << QRect(0, 0, 10, 10) << 4
            << QList<QRect>{{4, 4, 2, 2}, {2, 2, 5, 5}, {1, 1, 8, 8}, {0, 0, 10, 10}};
        // (5 - 2) / 2 + 101 = 102.5 rounds to 102; 3.5 rounds to 4.
        QTest::newRow("offset and odd sizes")
            << QRect(101, 20, 5, 7) << 2 << QList<QRect>{{102, 22, 2, 4}, {101, 20, 5, 7}};
        QTest::newRow("no steps") << QRect(0, 0, 100, 100) << 0 << QList<QRect>{};
    }

    void rectangles()
    {
        QFETCH(QRect, window);
        QFETCH(int, steps);
        QTEST(growingRectangles(window, qint16(steps)), "expected");
    }
};

QTEST_GUILESS_MAIN(TestGrowingRectangles)
#include "tst_GrowingRectangles.moc"
