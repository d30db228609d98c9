#include "app/Composition.h"

#include "app/StartupSequence.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/ui/DesktopShell.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPlainTextEdit>

namespace nubo::app {

using frame::FrameWindow;

Composition::Composition()
    : m_appFolder(QCoreApplication::applicationDirPath()),
      m_services(platform::createLinuxPlatform()),
      m_log(m_appFolder, [this] { return m_options.isOn(Option::EscribirLog); }),
      m_store(m_appFolder, m_options, m_log), m_sheetStore(m_appFolder),
      m_mainWindow({m_appFolder, m_options, m_windows, &m_notifyArea,
                    [this] { return sheetWindow().windowIcon(); }}),
      m_optionsWindow(m_appFolder, m_options, m_store, m_log), m_authorWindow(m_appFolder),
      m_trayMenu(m_windows)
{
    m_dialogs.setParentWindow(&m_mainWindow);
    connectFrame();
}

bool Composition::start()
{
    StartupSequence startup(
        {m_appFolder, m_options, m_store, m_log, m_services, m_dialogs,
         QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath()});
    if (startup.run(m_mainWindow) == StartupSequence::Outcome::EndProgram)
        return false;
    m_shell = platform::createLinuxShell(&m_mainWindow);
    m_list = std::make_unique<catalogue::ListWindow>(catalogue::ListWindowServices{
        m_appFolder, *m_services.drives, m_dialogs, *m_shell, m_options});
    connectList();
    connectSearch();
    m_mainWindow.show();
    return true;
}

void Composition::connectFrame()
{
    m_windows.connectWindow(FrameWindow::Options, &m_optionsWindow);
    m_windows.connectWindow(FrameWindow::Author, &m_authorWindow);
    m_windows.setEndProgram([] { QCoreApplication::exit(0); });
    m_mainWindow.setTrayMenu(&m_trayMenu);
    QObject::connect(&m_optionsWindow, &frame::Form5::closed, &m_mainWindow,
                     [this] { m_mainWindow.playClosingFrames(2); });
    QObject::connect(&m_authorWindow, &frame::Form6::closed, &m_mainWindow,
                     [this] { m_mainWindow.playClosingFrames(5); });
}

void Composition::connectList()
{
    catalogue::Form1& form = m_list->form;
    m_windows.connectWindow(FrameWindow::List, &form);
    m_windows.setListExit([&form] { form.ExitProgram->trigger(); });
    // The exit button empties the list without the save question.
    m_windows.setEmptyList([this] { m_list->catalogue.list().clear(); });
    QObject::connect(&form, &catalogue::Form1::endProgramRequested, qApp, &QCoreApplication::quit);
    QObject::connect(&form, &catalogue::Form1::sceneStepBackRequested, &m_mainWindow,
                     [this] { m_mainWindow.playClosingFrames(1); });
    QObject::connect(&form, &catalogue::Form1::optionsWindowRequested, &m_optionsWindow,
                     [this] { m_windows.showWindow(FrameWindow::Options); });
    QObject::connect(&form, &catalogue::Form1::sheetConfigurationRequested, &form, [this] {
        database::Form7& window = sheetWindow();
        window.show();
        window.raise();
        window.activateWindow();
    });
    QObject::connect(&m_optionsWindow, &frame::Form5::ChkproClicked, &form,
                     [&form] { form.txtMp3Info->clear(); });
}

void Composition::connectSearch()
{
    catalogue::Form1& form = m_list->form;
    m_searchHost = std::make_unique<search::ListWindowHost>(m_list->catalogue, form);
    m_search = std::make_unique<search::SearchWindows>(search::SearchWindows::Services{
        m_appFolder, *m_searchHost, m_dialogs, *m_services.drives, *m_services.volumes,
        *m_services.directories, *m_services.tray});
    m_searchHost->setEngine(&m_search->engine);
    form.setSearchLauncher(m_searchHost.get());
    m_search->controller.setCancelFlagRaiser([&form] { emit form.cancelRequested(); });
    QObject::connect(&form, &catalogue::Form1::searchWindowRequested, &m_search->form3,
                     [this] { m_search->showSearchWindow(); });
    m_windows.connectWindow(FrameWindow::Search, &m_search->form3);
    QObject::connect(&m_search->form3, &search::Form3::closed, &m_mainWindow,
                     [this] { m_mainWindow.playClosingFrames(4); });
}

database::Form7& Composition::sheetWindow()
{
    if (!m_sheetWindow) {
        m_sheetWindow = std::make_unique<database::Form7>(database::Form7::Deps{
            m_appFolder, m_sheetSettings, m_sheetStore, m_dialogs, m_options, m_store, m_log});
    }
    return *m_sheetWindow;
}

} // namespace nubo::app
