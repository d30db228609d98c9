#include "frame/FramePlayer.h"
#include "frame/SceneCounters.h"

#include <QSignalSpy>
#include <QTest>

using namespace nubo::frame;

namespace {

// Plays a run to its end, returning the frames that were shown.
QList<int> playToEnd(FramePlayer& player, const FrameRun& run)
{
    QSignalSpy frames(&player, &FramePlayer::frameShown);
    QSignalSpy finished(&player, &FramePlayer::finished);
    if (!player.play(run))
        return {-1};
    if (finished.isEmpty() && !finished.wait(2000))
        return {-2};
    QList<int> shown;
    for (const QList<QVariant>& args : frames)
        shown.append(args.at(1).toInt());
    return shown;
}

} // namespace

class TestSceneCounters final : public QObject
{
    Q_OBJECT
private slots:
    void risingThenFalling()
    {
        SceneCounters counters;
        FramePlayer player(counters);
        FrameRun run = counters.press(1, true);
        QCOMPARE(run.action, FaceAction::Open);
        QCOMPARE(run.pauseMs, 40);
        QCOMPARE(playToEnd(player, run), (QList<int>{0, 1, 2, 3, 4, 5, 6}));
        QCOMPARE(counters.counter(1), 6);

        run = counters.press(1, true);
        QCOMPARE(run.action, FaceAction::Close);
        QCOMPARE(run.pauseMs, 30);
        QCOMPARE(playToEnd(player, run), (QList<int>{5, 4, 3, 2, 1, 0}));
        QCOMPARE(counters.counter(1), 0);
    }

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
