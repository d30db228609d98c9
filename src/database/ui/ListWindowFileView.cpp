// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/ui/ListWindowFileView.h"

#include "catalogue/IListWindow.h"

namespace nubo::database {

void ListWindowFileView::beginProgress(int maximum)
{
    m_maximum = maximum;
    m_window.showProgress(maximum);
    m_window.setListEnabled(false);
    m_sinceRepaint.start();
    m_events.restart();
}

void ListWindowFileView::setProgress(int value)
{
    if (m_sinceRepaint.elapsed() < kRepaintMs && value < m_maximum)
        return;
    m_window.setProgress(value);
    m_sinceRepaint.restart();
}

void ListWindowFileView::endProgress()
{
    m_window.hideProgress();
    m_window.setListEnabled(true);
}

void ListWindowFileView::processEvents()
{
    m_events.run();
}

} // namespace nubo::database
