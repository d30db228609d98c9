// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ListWindowSearch.h"

namespace nubo::app {

ListWindowSearch::ListWindowSearch(catalogue::ListWindow& list, const Services& services)
    : m_sink(list.catalogue, list.form),
      m_windows({services.app, m_sink, services.dialogs, services.drives, services.volumes,
                 services.directories, services.tray})
{
    connectReports(list);
    list.form.setSearchLauncher(&m_windows);
    // The wait for the rows' details shows on the list window's bar, and Escape ends it.
    list.catalogue.setWaitWindow(&list.form);
    QObject::connect(&list.form, &catalogue::Form1::cancelRequested, &list.catalogue,
                     &catalogue::Catalogue::stopDetailWait);
}

// Direct connections: each report is on the window before the engine goes on, as the walk
// lets events run only at its own turns.
void ListWindowSearch::connectReports(catalogue::ListWindow& list)
{
    using catalogue::Form1;
    using search::SearchEngine;
    const SearchEngine* engine = &m_windows.engine;
    Form1* form = &list.form;
    catalogue::Catalogue* rows = &list.catalogue;
    const auto direct = Qt::DirectConnection;
    QObject::connect(engine, &SearchEngine::captionChanged, form, &Form1::setCaption, direct);
    QObject::connect(engine, &SearchEngine::findMenuVisibleChanged, form,
                     &Form1::setFindMenuVisible, direct);
    QObject::connect(engine, &SearchEngine::findMenuCaptionChanged, form,
                     &Form1::setFindMenuCaption, direct);
    QObject::connect(engine, &SearchEngine::busyChanged, form, &Form1::setBusyCursor, direct);
    QObject::connect(engine, &SearchEngine::folderStripShown, form, &Form1::showFolderStrip,
                     direct);
    QObject::connect(engine, &SearchEngine::listWindowShown, form, &Form1::showAndRaise, direct);
    QObject::connect(engine, &SearchEngine::driveSpaceFound, form, &Form1::setDriveSpace, direct);
    QObject::connect(engine, &SearchEngine::volumeNameChanged, form, &Form1::setVolumeName, direct);
    QObject::connect(engine, &SearchEngine::volumeDetailsFound, form, &Form1::setVolumeDetails,
                     direct);
    QObject::connect(engine, &SearchEngine::groupNameChosen, rows,
                     &catalogue::Catalogue::setGroupName, direct);
    QObject::connect(engine, &SearchEngine::messageShown, rows,
                     &catalogue::Catalogue::ShowInfoMessage, direct);
    // In this order: the flash starts, then the count line is redrawn.
    QObject::connect(engine, &SearchEngine::searchEnded, form, &Form1::startFlashing, direct);
    QObject::connect(engine, &SearchEngine::searchEnded, rows,
                     &catalogue::Catalogue::UpdateCountLine, direct);
}

} // namespace nubo::app
