// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/flow/ITransferView.h"

#include "core/EventPump.h"

#include <QElapsedTimer>

namespace nubo::catalogue {
class IListWindow;
}

namespace nubo::database {

// A catalogue save or load as the list window shows it: the list disabled, the progress bar
// moving. The loops offer to let events run once per row; they run at most every
// EventPump::kTransferInterval (Escape still arrives within a few milliseconds), and the bar
// is repainted at most every kRepaintMs, so neither slows a fast loop down.
class ListWindowFileView final : public ITransferView
{
public:
    static constexpr int kRepaintMs = 40;

    explicit ListWindowFileView(catalogue::IListWindow& window) : m_window(window) {}

    void beginProgress(int maximum) override;
    void setProgress(int value) override;
    void endProgress() override;
    void processEvents() override;

private:
    catalogue::IListWindow& m_window;
    int m_maximum = 0;
    QElapsedTimer m_sinceRepaint;
    core::EventPump m_events{core::EventPump::kTransferInterval};
};

} // namespace nubo::database
