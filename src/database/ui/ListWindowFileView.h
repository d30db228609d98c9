#pragma once

#include "database/flow/ITransferView.h"

#include <QElapsedTimer>

namespace nubo::catalogue {
class Form1;
}

namespace nubo::database {

// A catalogue save or load as the list window shows it: the list disabled, ProgressBar1
// moving. The loops offer to let events run once per row; they run at most every kEventsMs
// (Escape still arrives within a few milliseconds), and the bar is repainted at most every
// kRepaintMs, so neither slows a fast loop down.
class ListWindowFileView final : public ITransferView
{
public:
    static constexpr int kRepaintMs = 40;
    static constexpr qint64 kEventsNs = 2'000'000;

    explicit ListWindowFileView(catalogue::Form1& form) : m_form(form) {}

    void beginProgress(int maximum) override;
    void setProgress(int value) override;
    void endProgress() override;
    void processEvents() override;

private:
    catalogue::Form1& m_form;
    QElapsedTimer m_sinceRepaint;
    QElapsedTimer m_sinceEvents;
};

} // namespace nubo::database
