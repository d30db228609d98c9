// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/InstanceChannel.h"
#include "app/ListWindowSearch.h"
#include "catalogue/IPropertiesViewer.h"
#include "catalogue/ui/ListWindow.h"
#include "core/ActivityLog.h"
#include "core/Options.h"
#include "core/OptionsStore.h"
#include "database/SheetSettings.h"
#include "database/SheetSettingsStore.h"
#include "database/flow/CatalogueFileFlow.h"
#include "database/ui/Form7.h"
#include "database/ui/ListWindowFileView.h"
#include "frame/ui/Form12.h"
#include "frame/ui/Form5.h"
#include "frame/ui/Form6.h"
#include "frame/ui/Form8.h"
#include "frame/ui/QtNotifyArea.h"
#include "frame/ui/WindowDirectory.h"
#include "platform/PlatformServices.h"
#include "platform/ui/QtDialogs.h"
#include "print/ui/FormPrint1.h"

#include <functional>
#include <memory>

namespace nubo::app {

// Owns every service and window of the running program and connects them.
class Composition final
{
public:
    // appFolder: the folder that holds the program's pictures, options and log.
    // prepareAppFolder makes appFolder ready once the start-up checks let the program run.
    explicit Composition(const QString& appFolder, std::function<void()> prepareAppFolder = {});

    // Runs start-up; false when the program must end at once.
    [[nodiscard]] bool start();
    // The catalogue named on the command line, for the list to load as "&Desde Archivo" does.
    void openAtStart(const QString& path);
    // Where a later start of this executable finds the running one.
    static QString channelName();
    // Ends the process once the event loop has returned, without freeing the rows and windows.
    [[noreturn]] static void endProcess(int status);

private:
    void connectFrame();
    void connectList();
    void connectSearch();
    void showAsNubo();
    void endProgram();
    void connectPrint();
    void connectCatalogueFiles();
    void listenForLaterStarts();
    // The sheet configuration window, created on first use (the tray icon takes its icon).
    database::Form7& sheetWindow();

    std::function<void()> m_prepareAppFolder;
    const platform::AppFolder m_appFolder;
    platform::PlatformServices m_services;
    platform::QtDialogs m_dialogs;
    core::Options m_options;
    core::ActivityLog m_log;
    core::OptionsStore m_store;
    database::SheetSettings m_sheetSettings;
    database::SheetSettingsStore m_sheetStore;

    frame::WindowDirectory m_windows;
    frame::QtNotifyArea m_notifyArea;
    frame::Form12 m_mainWindow;
    frame::Form5 m_optionsWindow;
    frame::Form6 m_authorWindow;
    frame::Form8 m_trayMenu;

    // Declared before the list window, which points at it, so it is destroyed after it.
    std::unique_ptr<catalogue::IPropertiesViewer> m_properties;
    // Created once start-up has let the program run; never destroyed before the end.
    std::unique_ptr<catalogue::ListWindow> m_list;
    std::unique_ptr<ListWindowSearch> m_search;
    std::unique_ptr<print::FormPrint1> m_cover; // created when first asked for
    std::unique_ptr<database::ListWindowFileView> m_fileView;
    std::unique_ptr<database::CatalogueFileFlow> m_files;
    std::unique_ptr<database::Form7> m_sheetWindow;
    std::unique_ptr<InstanceChannel> m_channel;
};

} // namespace nubo::app
