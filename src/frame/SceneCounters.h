// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QtGlobal>

#include <array>

namespace nubo::frame {

enum class FaceAction { Open, Close, Exit };

// One animation of a round button's face: the frames to show in order, the pause after
// each, and what the button does once the last pause is over.
struct FrameRun
{
    int button = 0; // 1 .. 5: whose pictures "scene<frame>boton<button>" are shown
    QList<int> frames;
    int pauseMs = 0;
    FaceAction action = FaceAction::Open;
};

// The scene counters of the five round buttons: the frame each face last showed. A counter
// of 0 means the button's window is closed; 6 means it is open.
class SceneCounters final
{
public:
    static constexpr int kLastFrame = 6;

    int counter(int button) const { return m_counters[slot(button)]; }
    void frameShown(int button, int frame) { m_counters[slot(button)] = frame; }

    // The run a press starts: rising to the last frame and opening when the counter is 0,
    // else falling to the idle face and closing; the exit button always ends with Exit.
    // Without animations the face jumps to its end frame with no pause.
    FrameRun press(int button, bool animate) const;

    // The falling run that returns a face to idle when its window was closed elsewhere;
    // no frames when the face is idle already.
    FrameRun closing(int button, bool animate) const;

    // The counter a button shares: Picture3 and Picture4 keep one counter between them.
    static int slot(int button)
    {
        static constexpr std::array<int, 6> kSlotOf = {0, 0, 1, 2, 2, 3};
        return kSlotOf[std::size_t(qBound(1, button, 5))];
    }

private:
    static QList<int> rising(bool animate);
    QList<int> falling(int button, bool animate) const;
    static int risingPause(int button) { return button == 1 ? 40 : 15; }
    static int fallingPause(int button) { return button == 1 ? 30 : 20; }

    std::array<int, 4> m_counters{};
};

} // namespace nubo::frame
