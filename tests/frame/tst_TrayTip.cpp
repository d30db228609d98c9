// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/TrayTip.h"

#include <QTest>

using namespace nubo::frame;

class TestTrayTip final : public QObject
{
    Q_OBJECT
private slots:
    // The tip shows at most 63 bytes of the text, up to a zero character.
    void shownTip_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("shown");
        QTest::newRow("short") << QStringLiteral("Nubo") << QStringLiteral("Nubo");
        QTest::newRow("63 characters") << QString(63, u'x') << QString(63, u'x');
        QTest::newRow("64 characters are cut") << QString(64, u'y') << QString(63, u'y');
        QTest::newRow("a cut through a character drops it")
            << QString(62, u'a') + QStringLiteral("ñ") << QString(62, u'a');
        QTest::newRow("a zero character ends it")
            << QStringLiteral("Nubo") + QChar(0) + QStringLiteral("oculto")
            << QStringLiteral("Nubo");
    }
    void shownTip()
    {
        QFETCH(QString, text);
        QTEST(trayTip(text), "shown");
    }
};

QTEST_GUILESS_MAIN(TestTrayTip)
#include "tst_TrayTip.moc"
