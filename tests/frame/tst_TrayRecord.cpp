// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/TrayRecord.h"

#include <QTest>

using namespace nubo::frame;

class TestTrayRecord final : public QObject
{
    Q_OBJECT
private slots:
    // The tip field is 64 bytes: the text cut there, a terminating zero if it fits, blanks.
    void tipField_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<QString>("shown");
        QTest::newRow("short") << QStringLiteral("Nubo")
                               << QByteArray("Nubo") + '\0' + QByteArray(59, ' ')
                               << QStringLiteral("Nubo");
        QTest::newRow("63 characters")
            << QString(63, u'x') << QByteArray(63, 'x') + '\0' << QString(63, u'x');
        QTest::newRow("64 characters are cut")
            << QString(64, u'y') << QByteArray(64, 'y') << QString(63, u'y');
        QTest::newRow("a cut through a character drops it")
            << QString(62, u'a') + QStringLiteral("ñ") << QByteArray(62, 'a') + "\xc3\xb1"
            << QString(62, u'a');
    }
    void tipField()
    {
        QFETCH(QString, text);
        TrayRecord record;
        record.setTip(text);
        QTEST(record.tipField(), "field");
        QTEST(record.shownTip(), "shown");
    }
};

QTEST_GUILESS_MAIN(TestTrayRecord)
#include "tst_TrayRecord.moc"
