#include "database/BorderStyles.h"
#include "database/SheetStyle.h"

#include <QtTest>

using namespace nubo::database;

class BorderStylesTest final : public QObject
{
    Q_OBJECT

private slots:
    void mapsTheSpreadsheetNumbers_data()
    {
        QTest::addColumn<int>("lineStyle");
        QTest::addColumn<int>("weight");
        QTest::addColumn<int>("code");
        QTest::newRow("continuous hairline") << excel::kContinuous << excel::kHairline << 7;
        QTest::newRow("continuous thin") << excel::kContinuous << excel::kThin << 1;
        QTest::newRow("continuous medium") << excel::kContinuous << excel::kMedium << 2;
        QTest::newRow("continuous thick") << excel::kContinuous << excel::kThick << 5;
        QTest::newRow("dash thin") << excel::kDash << excel::kThin << 3;
        QTest::newRow("dash medium") << excel::kDash << excel::kMedium << 8;
        QTest::newRow("dot thin") << excel::kDot << excel::kThin << 4;
        QTest::newRow("dash-dot thin") << excel::kDashDot << excel::kThin << 9;
        QTest::newRow("dash-dot thick") << excel::kDashDot << excel::kThick << 10;
        QTest::newRow("dash-dot-dot") << excel::kDashDotDot << excel::kThin << 11;
        QTest::newRow("dash-dot-dot medium") << excel::kDashDotDot << excel::kMedium << 12;
        QTest::newRow("slant") << excel::kSlantDashDot << excel::kThin << 13;
        QTest::newRow("double") << excel::kDouble << excel::kThick << 6;
        QTest::newRow("none") << excel::kLineStyleNone << excel::kThin << 0;
        QTest::newRow("zero is none") << 0 << 2 << 0;
        QTest::newRow("undefined style") << 7 << excel::kThin << 1;
        QTest::newRow("weight 3") << excel::kContinuous << 3 << 2;
    }
    void mapsTheSpreadsheetNumbers()
    {
        QFETCH(int, lineStyle);
        QFETCH(int, weight);
        QFETCH(int, code);
        QCOMPARE(biffBorderStyle(lineStyle, weight), code);
    }
};

QTEST_GUILESS_MAIN(BorderStylesTest)
#include "tst_BorderStyles.moc"
