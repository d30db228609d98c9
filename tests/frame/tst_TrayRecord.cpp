#include "frame/TrayRecord.h"

#include <QTest>

using namespace nubo::frame;

class TestTrayRecord final : public QObject
{
    Q_OBJECT
private slots:
    void tipField_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        QTest::newRow("short") << "Nubo Beta Version 1.5!!!"
                               << "Nubo Beta Version 1.5!!!";
        QTest::newRow("63 characters") << QString(63, u'x') << QString(63, u'x');
        QTest::newRow("64 characters are cut") << QString(64, u'y') << QString(63, u'y');
        QTest::newRow("long") << QString(100, u'z') << QString(63, u'z');
        QTest::newRow("a cut through a character drops it")
            << QString(62, u'a') + QStringLiteral("ñ") << QString(62, u'a');
    }

    void tipField()
    {
        QFETCH(QString, text);
        QFETCH(QString, shown);
        TrayRecord record;
        record.setTip(text);
        QCOMPARE(record.tipText(), text);
        QCOMPARE(record.tipField().size(), 64);
        QCOMPARE(record.shownTip(), shown);
    }

    void shortTipIsTerminatedAndPadded()
    {
        TrayRecord record;
        record.setTip(QStringLiteral("Nubo"));
        QCOMPARE(record.tipField(), QByteArray("Nubo") + '\0' + QByteArray(59, ' '));
    }

    void messages_data()
    {
        QTest::addColumn<double>("x");
        QTest::addColumn<int>("event"); // -1: none
        QTest::newRow("move") << 512.0 << -1;
        QTest::newRow("left down") << 513.0 << int(TrayEvent::LButtonDown);
        QTest::newRow("left up") << 514.0 << int(TrayEvent::LButtonUp);
        QTest::newRow("left double") << 515.0 << int(TrayEvent::LButtonDblClk);
        QTest::newRow("right down") << 516.0 << int(TrayEvent::RButtonDown);
        QTest::newRow("right up") << 517.0 << int(TrayEvent::RButtonUp);
        QTest::newRow("right double") << 518.0 << int(TrayEvent::RButtonDblClk);
        QTest::newRow("middle down") << 519.0 << -1;
        QTest::newRow("half rounds to even") << 516.5 << int(TrayEvent::RButtonDown);
    }

    void messages()
    {
        QFETCH(double, x);
        QFETCH(int, event);
        TrayRecord record;
        record.receive(700);
        const std::optional<TrayEvent> got = record.receive(x);
        QCOMPARE(got ? int(*got) : -1, event);
        QCOMPARE(record.previousMessage(), 700);
    }
};

QTEST_GUILESS_MAIN(TestTrayRecord)
#include "tst_TrayRecord.moc"
