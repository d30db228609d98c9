// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>

#include <chrono>

namespace nubo::core {

// Lets a long loop that runs in the window's own thread hand over to pending window events
// (repaints, and the Escape or stop request the loop watches for) at most once per interval.
// The loop offers the chance as often as it likes, once per row or per file; only the first
// offer after the interval lets events run, so the loop's time goes to its own work and not
// to the event loop.
class EventPump final
{
public:
    // A folder walk repaints a list that grows with every match: every 8 ms keeps the walk
    // near the file system's speed while a stop request still arrives within a few
    // milliseconds.
    static constexpr std::chrono::milliseconds kWalkInterval{8};
    // A catalogue save or load has the list disabled and repaints its bar on a clock of its
    // own, so each turn of the event loop is cheap: every 2 ms lets Escape stop it at once.
    static constexpr std::chrono::milliseconds kTransferInterval{2};

    explicit EventPump(std::chrono::milliseconds interval = {}) : m_interval(interval) {}

    // Zero lets events run at every offer.
    void setInterval(std::chrono::milliseconds interval) { m_interval = interval; }
    // The interval starts now, as if events had just run.
    void restart() { m_sinceEvents.start(); }
    // Events may run: the interval has passed since they last ran (or they never have).
    bool isDue() const;
    // Runs the pending events if they are due.
    void run();

private:
    std::chrono::milliseconds m_interval;
    QElapsedTimer m_sinceEvents;
};

} // namespace nubo::core
