#pragma once

#include "database/flow/CatalogueTransfer.h"
#include "database/flow/ITransferView.h"

namespace nubo::database {

// One save or load: refuses to start inside another, clears the cancel flag, and gives the
// list and the progress bar back on every way out.
class TransferRun final
{
public:
    explicit TransferRun(CatalogueTransfer& transfer)
        : m_transfer(transfer), m_entered(!transfer.m_running)
    {
        if (!m_entered)
            return;
        transfer.m_running = true;
        transfer.m_cancel = false;
    }
    ~TransferRun()
    {
        hideProgress();
        if (m_entered)
            m_transfer.m_running = false;
    }
    TransferRun(const TransferRun&) = delete;
    TransferRun& operator=(const TransferRun&) = delete;

    explicit operator bool() const { return m_entered; }

    void showProgress(int maximum)
    {
        m_transfer.m_s.view.beginProgress(maximum);
        m_shown = true;
    }
    void hideProgress()
    {
        if (m_shown)
            m_transfer.m_s.view.endProgress();
        m_shown = false;
    }

private:
    CatalogueTransfer& m_transfer;
    bool m_entered;
    bool m_shown = false;
};

} // namespace nubo::database
