// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/ui/ListWindowSink.h"

#include "catalogue/Catalogue.h"
#include "catalogue/IListWindow.h"

#include <QCoreApplication>

namespace nubo::search {

ListWindowSink::ListWindowSink(catalogue::Catalogue& catalogue, catalogue::IListWindow& window)
    : m_catalogue(catalogue), m_window(window)
{
}

void ListWindowSink::addFileToList(const QString& path)
{
    QString copy = path;
    m_catalogue.AddFileToList(copy);
}

void ListWindowSink::addKnownFileToList(const QString& path)
{
    QString copy = path;
    m_catalogue.AddKnownFileToList(copy);
}

void ListWindowSink::setFolderStrip(const QString& text)
{
    m_window.setFolderStrip(text);
}

void ListWindowSink::endFolderBatch()
{
    // The list announces new rows in batches of its own; scrolling waits for the next one.
    m_window.scrollListToEnd();
}

void ListWindowSink::letEventsRun()
{
    QCoreApplication::processEvents();
}

int ListWindowSink::rowCount() const
{
    return m_catalogue.list().count();
}

QString ListWindowSink::volumeName() const
{
    return m_window.volumeName();
}

bool ListWindowSink::refuseWhileListBusy()
{
    return m_catalogue.refuseWhileBusy();
}

void ListWindowSink::walkStarts(bool opticalDisc)
{
    m_catalogue.detailReader().setInOrder(opticalDisc);
    m_catalogue.detailReader().setWalking(true);
}

void ListWindowSink::walkEnds()
{
    m_catalogue.detailReader().setWalking(false);
}

void ListWindowSink::recordDisc(const core::DiscRecord& record)
{
    core::DiscRecord named = record;
    named.origen = m_catalogue.groupName();
    m_catalogue.discs().recordSearch(named);
}

} // namespace nubo::search
