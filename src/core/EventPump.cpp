// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/EventPump.h"

#include <QCoreApplication>

namespace nubo::core {

bool EventPump::isDue() const
{
    const qint64 intervalNs = std::chrono::nanoseconds(m_interval).count();
    return intervalNs <= 0 || !m_sinceEvents.isValid() ||
           m_sinceEvents.nsecsElapsed() >= intervalNs;
}

void EventPump::run()
{
    if (!isDue())
        return;
    QCoreApplication::processEvents();
    restart();
}

} // namespace nubo::core
