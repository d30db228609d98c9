// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/EventPump.h"

#include <QCoreApplication>
#include <QTest>
#include <QTimer>

using namespace std::chrono_literals;
using nubo::core::EventPump;

class TestEventPump final : public QObject
{
    Q_OBJECT
private slots:
    // A pending event runs at the first offer, at every offer without an interval, and not
    // again until the interval has passed.
    void runsOncePerInterval_data()
    {
        QTest::addColumn<int>("intervalMs");
        QTest::addColumn<bool>("restarted");
        QTest::addColumn<bool>("runs");
        QTest::newRow("first offer") << 3'600'000 << false << true;
        QTest::newRow("within the interval") << 3'600'000 << true << false;
        QTest::newRow("no interval") << 0 << true << true;
    }

    void runsOncePerInterval()
    {
        QFETCH(int, intervalMs);
        QFETCH(bool, restarted);
        EventPump pump{std::chrono::milliseconds(intervalMs)};
        if (restarted)
            pump.restart();
        bool ran = false;
        QTimer::singleShot(0, this, [&ran] { ran = true; });
        pump.run();
        QTEST(ran, "runs");
        QCOMPARE(pump.isDue(), intervalMs == 0);
        QCoreApplication::processEvents(); // nothing is left behind for the next row
    }
};

QTEST_GUILESS_MAIN(TestEventPump)
#include "tst_EventPump.moc"
