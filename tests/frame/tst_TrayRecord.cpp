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
        QTest::newRow("63 characters") << QString(63, u'x') << QString(63, u'x');
        QTest::newRow("64 characters are cut") << QString(64, u'y') << QString(63, u'y');
        QTest::newRow("a cut through a character drops it")
            << QString(62, u'a') + QStringLiteral("ñ") << QString(62, u'a');
    }

    void tipField()
    {
        QFETCH(QString, text);
        TrayRecord record;
        record.setTip(text);
        QCOMPARE(record.tipField().size(), 64);
        QTEST(record.shownTip(), "shown");
    }

    void shortTipIsTerminatedAndPadded()
    {
        TrayRecord record;
        record.setTip(QStringLiteral("Nubo"));
        QCOMPARE(record.tipField(), QByteArray("Nubo") + '\0' + QByteArray(59, ' '));
    }
};

QTEST_GUILESS_MAIN(TestTrayRecord)
#include "tst_TrayRecord.moc"
