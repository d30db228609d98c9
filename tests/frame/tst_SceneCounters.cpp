// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/FramePlayer.h"
#include "frame/SceneCounters.h"

#include <QSignalSpy>
#include <QTest>

using namespace nubo::frame;

class TestSceneCounters final : public QObject
{
    Q_OBJECT
private slots:
    // Picture3 and Picture4 share one counter: with the search window open, the exit button
    // plays nothing but still ends the program.
    void exitSharesTheSearchCounter()
    {
        SceneCounters counters;
        FrameRun exit = counters.press(3, true);
        QCOMPARE(exit.frames.size(), 7);
        QCOMPARE(exit.action, FaceAction::Exit);
        counters.frameShown(4, 6);
        QCOMPARE(counters.counter(3), 6);
        exit = counters.press(3, true);
        QVERIFY(exit.frames.isEmpty());
        QCOMPARE(exit.action, FaceAction::Exit);
    }

    // While a run plays, the window keeps running and a second press of the same counter is
    // ignored; another button can run at the same time.
    void busyCounterIgnoresPresses()
    {
        SceneCounters counters;
        FramePlayer player(counters);
        QSignalSpy finished(&player, &FramePlayer::finished);
        QVERIFY(player.play(counters.press(4, true)));
        QVERIFY(player.isPlaying(4));
        QVERIFY(!player.play(counters.press(3, true)));
        QVERIFY(player.play(counters.press(5, true)));
        QTRY_COMPARE(finished.size(), 2);
        QCOMPARE(counters.counter(4), 6);
        QCOMPARE(counters.counter(5), 6);
    }
};

QTEST_GUILESS_MAIN(TestSceneCounters)
#include "tst_SceneCounters.moc"
