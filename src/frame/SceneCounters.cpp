// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/SceneCounters.h"

namespace nubo::frame {

QList<int> SceneCounters::rising(bool animate)
{
    if (!animate)
        return {kLastFrame};
    QList<int> frames;
    for (int frame = 0; frame <= kLastFrame; ++frame)
        frames.append(frame);
    return frames;
}

QList<int> SceneCounters::falling(int button, bool animate) const
{
    if (!animate)
        return {0};
    QList<int> frames;
    for (int frame = counter(button) - 1; frame >= 0; --frame)
        frames.append(frame);
    return frames;
}

FrameRun SceneCounters::press(int button, bool animate) const
{
    FrameRun run;
    run.button = button;
    if (button == 3) {
        // Deliberately kept: the exit button shares its counter with Picture4, so while the
        // search window is open it ends the program without playing its run.
        if (counter(button) == 0)
            run.frames = rising(animate);
        run.pauseMs = animate ? risingPause(button) : 0;
        run.action = FaceAction::Exit;
        return run;
    }
    if (counter(button) == 0) {
        run.frames = rising(animate);
        run.pauseMs = animate ? risingPause(button) : 0;
        run.action = FaceAction::Open;
    } else {
        run.frames = falling(button, animate);
        run.pauseMs = animate ? fallingPause(button) : 0;
        run.action = FaceAction::Close;
    }
    return run;
}

FrameRun SceneCounters::closing(int button, bool animate) const
{
    FrameRun run;
    run.button = button;
    run.action = FaceAction::Close;
    if (counter(button) != 0) {
        run.frames = falling(button, animate);
        run.pauseMs = animate ? fallingPause(button) : 0;
    }
    return run;
}

} // namespace nubo::frame
