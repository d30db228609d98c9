// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "search/ISearchHost.h"

namespace nubo::catalogue {
class Catalogue;
class IListWindow;
} // namespace nubo::catalogue

namespace nubo::search {

// Where a search run from the list window puts what it finds: the rows go to the catalogue,
// the folder being searched to the window's strip; it answers the engine's questions from
// them.
class ListWindowSink final : public ISearchHost
{
public:
    ListWindowSink(catalogue::Catalogue& catalogue, catalogue::IListWindow& window);

    void addFileToList(const QString& path) override;
    void addKnownFileToList(const QString& path) override;
    // The list shows them as Windows-1252 reads them; playing one says why it cannot.
    bool takesUndecodableNames() const override { return true; }
    void setFolderStrip(const QString& text) override;
    void beginFolderBatch() override {}
    void endFolderBatch() override;
    void letEventsRun() override;
    int rowCount() const override;
    QString volumeName() const override;
    bool refuseWhileListBusy() override;
    void walkStarts(bool opticalDisc) override;
    void walkEnds() override;
    // The record goes to the list's discs under the group the search's rows carry.
    void recordDisc(const core::DiscRecord& record) override;

private:
    catalogue::Catalogue& m_catalogue;
    catalogue::IListWindow& m_window;
};

} // namespace nubo::search
