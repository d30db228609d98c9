// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/ui/ListWindowFileView.h"

#include "catalogue/IListWindow.h"

#include <QCoreApplication>

namespace nubo::database {

void ListWindowFileView::beginProgress(int maximum)
{
    m_maximum = maximum;
    m_window.showProgress(maximum);
    m_window.setListEnabled(false);
    m_sinceRepaint.start();
    m_sinceEvents.start();
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
    if (m_sinceEvents.isValid() && m_sinceEvents.nsecsElapsed() < kEventsNs)
        return;
    QCoreApplication::processEvents();
    m_sinceEvents.start();
}

} // namespace nubo::database
