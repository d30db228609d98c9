// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/ui/ListWindowHost.h"

#include "catalogue/Catalogue.h"
#include "catalogue/IListWindow.h"
#include "search/SearchEngine.h"

#include <QCoreApplication>

namespace nubo::search {

ListWindowHost::ListWindowHost(catalogue::Catalogue& catalogue, catalogue::IListWindow& window)
    : m_catalogue(catalogue), m_window(window)
{
}

void ListWindowHost::addFileToList(const QString& path)
{
    QString copy = path;
    m_catalogue.AddFileToList(copy);
}

void ListWindowHost::addKnownFileToList(const QString& path)
{
    QString copy = path;
    m_catalogue.AddKnownFileToList(copy);
}

void ListWindowHost::setFolderStrip(const QString& text)
{
    m_window.setFolderStrip(text);
}

void ListWindowHost::endFolderBatch()
{
    // The list announces new rows in batches of its own; scrolling waits for the next one.
    m_window.scrollListToEnd();
}

void ListWindowHost::letEventsRun()
{
    QCoreApplication::processEvents();
}

int ListWindowHost::rowCount() const
{
    return m_catalogue.list().count();
}

void ListWindowHost::setGroupName(const QString& name)
{
    m_catalogue.setGroupName(name);
}

void ListWindowHost::updateCountLine()
{
    m_catalogue.UpdateCountLine();
}

void ListWindowHost::showInfoMessage(const QString& text, int delayMs, quint32 rgb)
{
    m_catalogue.ShowInfoMessage(text, qint16(delayMs), rgb);
}

void ListWindowHost::setCaption(const QString& caption)
{
    m_window.setCaption(caption);
}

void ListWindowHost::setFindMenuVisible(bool visible)
{
    m_window.setFindMenuVisible(visible);
}

void ListWindowHost::setFindMenuCaption(const QString& caption)
{
    m_window.setFindMenuCaption(caption);
}

void ListWindowHost::setBusyCursor(bool busy)
{
    m_window.setBusyCursor(busy);
}

void ListWindowHost::showFolderStrip()
{
    m_window.showFolderStrip();
}

void ListWindowHost::startFlash()
{
    m_window.startFlashing();
}

void ListWindowHost::showListWindow()
{
    m_window.showAndRaise();
}

void ListWindowHost::setDriveSpace(const QString& total, const QString& free)
{
    m_window.setDriveSpace(total, free);
}

QString ListWindowHost::volumeName() const
{
    return m_window.volumeName();
}

void ListWindowHost::setVolumeName(const QString& name)
{
    m_window.setVolumeName(name);
}

void ListWindowHost::setVolumeDetails(const QString& serial, const QString& maxComponentLength,
                                      const QString& fileSystem, const QString& flags)
{
    m_window.setVolumeDetails(serial, maxComponentLength, fileSystem, flags);
}

bool ListWindowHost::refuseWhileListBusy()
{
    return m_catalogue.refuseWhileBusy();
}

void ListWindowHost::RunSearch()
{
    if (m_engine)
        m_engine->RunSearch();
}

void ListWindowHost::searchFolder(const QString& folder, const QString& mask)
{
    if (m_engine)
        m_engine->searchDroppedFolder(folder, mask);
}

bool ListWindowHost::stop()
{
    return m_engine && m_engine->requestStop();
}

} // namespace nubo::search
