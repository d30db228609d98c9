// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/Catalogue.h"
#include "database/flow/CatalogueTransfer.h"
#include "database/flow/ITransferView.h"

namespace nubo::database {

// One save or load: refuses to start while another has the list, holds the list busy (so
// commands that change it are refused while events run), clears the cancel and exit flags,
// and gives the list and the progress bar back on every way out.
class TransferRun final
{
public:
    explicit TransferRun(CatalogueTransfer& transfer)
        : m_transfer(transfer), m_entered(!transfer.m_s.catalogue.refuseWhileBusy())
    {
        if (!m_entered)
            return;
        transfer.m_s.catalogue.setBusy(true);
        transfer.m_cancel = false;
        transfer.m_exiting = false;
    }
    ~TransferRun()
    {
        hideProgress();
        if (m_entered)
            m_transfer.m_s.catalogue.setBusy(false);
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
