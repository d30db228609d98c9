#pragma once

#include "database/flow/ITransferView.h"

#include <QElapsedTimer>

namespace nubo::catalogue {
class Form1;
}

namespace nubo::database {

// A catalogue save or load as the list window shows it: the list disabled, ProgressBar1
// moving. The bar is repainted at most every kRepaintMs, so a fast loop is not slowed by it.
class ListWindowFileView final : public ITransferView
{
public:
    static constexpr int kRepaintMs = 40;

    explicit ListWindowFileView(catalogue::Form1& form) : m_form(form) {}

    void beginProgress(int maximum) override;
    void setProgress(int value) override;
    void endProgress() override;
    void processEvents() override;

private:
    catalogue::Form1& m_form;
    QElapsedTimer m_sinceRepaint;
};

} // namespace nubo::database
