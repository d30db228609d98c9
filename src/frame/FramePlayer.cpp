// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/FramePlayer.h"

namespace nubo::frame {

FramePlayer::FramePlayer(SceneCounters& counters, QObject* parent)
    : QObject(parent), m_counters(counters)
{
    for (std::size_t slot = 0; slot < m_playing.size(); ++slot) {
        auto* timer = new QTimer(this);
        timer->setSingleShot(true);
        connect(timer, &QTimer::timeout, this, [this, slot] { step(int(slot)); });
        m_playing[slot].timer = timer;
    }
}

bool FramePlayer::isPlaying(int button) const
{
    return m_playing[std::size_t(SceneCounters::slot(button))].timer->isActive();
}

void FramePlayer::showFrame(const FrameRun& run, int frame)
{
    m_counters.frameShown(run.button, frame);
    emit frameShown(run.button, frame);
}

bool FramePlayer::play(const FrameRun& run)
{
    if (isPlaying(run.button))
        return false;
    if (run.pauseMs <= 0 || run.frames.isEmpty()) {
        for (int frame : run.frames)
            showFrame(run, frame);
        emit finished(run.button, run.action);
        return true;
    }
    const int slot = SceneCounters::slot(run.button);
    Playing& playing = m_playing[std::size_t(slot)];
    playing.run = run;
    playing.next = 0;
    step(slot);
    return true;
}

// Shows the next frame and waits its pause; after the last pause the run's action follows.
void FramePlayer::step(int slot)
{
    Playing& playing = m_playing[std::size_t(slot)];
    if (playing.next >= playing.run.frames.size()) {
        emit finished(playing.run.button, playing.run.action);
        return;
    }
    showFrame(playing.run, playing.run.frames[playing.next++]);
    playing.timer->start(playing.run.pauseMs);
}

} // namespace nubo::frame
