#include "database/ui/ListWindowFileView.h"

#include "catalogue/ui/CatalogueView.h"
#include "catalogue/ui/Form1.h"

#include <QCoreApplication>
#include <QProgressBar>

namespace nubo::database {

void ListWindowFileView::beginProgress(int maximum)
{
    m_form.ProgressBar1->setMaximum(maximum);
    m_form.ProgressBar1->setValue(0);
    m_form.ProgressBar1->show();
    m_form.ListView1->setEnabled(false);
    m_sinceRepaint.start();
    m_sinceEvents.start();
}

void ListWindowFileView::setProgress(int value)
{
    if (m_sinceRepaint.elapsed() < kRepaintMs && value < m_form.ProgressBar1->maximum())
        return;
    m_form.ProgressBar1->setValue(value);
    m_sinceRepaint.restart();
}

void ListWindowFileView::endProgress()
{
    m_form.ProgressBar1->hide();
    m_form.ListView1->setEnabled(true);
}

void ListWindowFileView::processEvents()
{
    if (m_sinceEvents.isValid() && m_sinceEvents.nsecsElapsed() < kEventsNs)
        return;
    QCoreApplication::processEvents();
    m_sinceEvents.start();
}

} // namespace nubo::database
