// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/ISearchLauncher.h"
#include "search/ISearchHost.h"

namespace nubo::catalogue {
class Catalogue;
class IListWindow;
} // namespace nubo::catalogue

namespace nubo::search {

class SearchEngine;

// Joins the list window and the search engine: the engine reports to the window's list,
// labels and menu through it, and the window's hidden search button, its Escape key and
// dropped folders reach the engine through it.
class ListWindowHost final : public ISearchHost, public catalogue::ISearchLauncher
{
public:
    ListWindowHost(catalogue::Catalogue& catalogue, catalogue::IListWindow& window);

    void setEngine(SearchEngine* engine) { m_engine = engine; }

    // ISearchHost
    void addFileToList(const QString& path) override;
    void addKnownFileToList(const QString& path) override;
    // The list shows them as Windows-1252 reads them; playing one says why it cannot.
    bool takesUndecodableNames() const override { return true; }
    void setFolderStrip(const QString& text) override;
    void beginFolderBatch() override {}
    void endFolderBatch() override;
    void letEventsRun() override;
    int rowCount() const override;
    void setGroupName(const QString& name) override;
    void updateCountLine() override;
    void showInfoMessage(const QString& text, int delayMs, quint32 rgb) override;
    bool refuseWhileListBusy() override;
    void setCaption(const QString& caption) override;
    void setFindMenuVisible(bool visible) override;
    void setFindMenuCaption(const QString& caption) override;
    void setBusyCursor(bool busy) override;
    void showFolderStrip() override;
    void startFlash() override;
    void showListWindow() override;
    void setDriveSpace(const QString& total, const QString& free) override;
    QString volumeName() const override;
    void setVolumeName(const QString& name) override;
    void setVolumeDetails(const QString& serial, const QString& maxComponentLength,
                          const QString& fileSystem, const QString& flags) override;

    // ISearchLauncher
    void RunSearch() override;
    void searchFolder(const QString& folder, const QString& mask) override;
    bool stop() override;

private:
    catalogue::Catalogue& m_catalogue;
    catalogue::IListWindow& m_window;
    SearchEngine* m_engine = nullptr;
};

} // namespace nubo::search
