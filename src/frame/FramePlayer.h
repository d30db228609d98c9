// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/SceneCounters.h"

#include <QObject>
#include <QTimer>

#include <array>

namespace nubo::frame {

// Plays frame runs on timers, so the window keeps answering between frames. Each shown frame
// is recorded in the scene counters; a button whose counter is busy ignores further runs.
class FramePlayer final : public QObject
{
    Q_OBJECT
public:
    explicit FramePlayer(SceneCounters& counters, QObject* parent = nullptr);

    // Starts a run; false when a run of the same counter is still playing. A run without
    // pauses plays and finishes before this returns.
    bool play(const FrameRun& run);
    bool isPlaying(int button) const;

signals:
    void frameShown(int button, int frame);
    void finished(int button, nubo::frame::FaceAction action);

private:
    struct Playing
    {
        FrameRun run;
        int next = 0;
        QTimer* timer = nullptr;
    };

    void step(int slot);
    void showFrame(const FrameRun& run, int frame);

    SceneCounters& m_counters;
    std::array<Playing, 4> m_playing;
};

} // namespace nubo::frame
