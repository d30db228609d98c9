// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Composition.h"

#include "app/StartupSequence.h"
#include "database/GsfSession.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/ui/DesktopPrompts.h"
#include "tags/ui/PropertiesWindow.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QIcon>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace nubo::app {

namespace {

// A window opened from the list window belongs to it, so it stacks above the list window even
// while that one is kept on top. X11 window managers honour the owner only for dialogs.
void stackAbove(QWidget& window, QWidget& owner)
{
    if (window.windowType() != Qt::Dialog)
        window.setWindowFlags(window.windowFlags() | Qt::Dialog);
    window.winId();
    owner.winId();
    if (QWindow* handle = window.windowHandle())
        handle->setTransientParent(owner.windowHandle());
}

// Puts window beside owner, on the side with more room on the screen, kept inside the screen,
// so the names of the rows it describes stay in sight as far as the screen allows.
void placeBeside(QWidget& window, const QWidget& owner)
{
    const QScreen* screen = owner.screen();
    if (!screen)
        return;
    const QRect free = screen->availableGeometry();
    const QRect frame = owner.frameGeometry();
    const QSize size = window.sizeHint().expandedTo(window.minimumSize());
    const bool right = free.right() - frame.right() >= frame.left() - free.left();
    const int x = right ? frame.right() + 1 : frame.left() - size.width();
    const int lastX = std::max(free.left(), free.right() + 1 - size.width());
    const int lastY = std::max(free.top(), free.bottom() + 1 - size.height());
    window.move(std::clamp(x, free.left(), lastX), std::clamp(frame.top(), free.top(), lastY));
}

// The properties window as the list window sees it, created on first use.
class PropertiesViewer final : public catalogue::IPropertiesViewer
{
public:
    explicit PropertiesViewer(QWidget& list) : m_list(list) {}

    void showProperties(const QString& path) override
    {
        window().showProperties(tags::readFileProperties(path));
        bringForward();
    }
    bool isOpen() const override { return m_window && m_window->isVisible(); }
    void followSelection(const QString& path) override
    {
        m_window->showProperties(tags::readFileProperties(path));
    }
    void showRowFacts(const catalogue::RowFacts& facts) override
    {
        window().showKnownFields(facts.fileName, facts.columns, facts.disc);
        bringForward();
    }
    void followRowFacts(const catalogue::RowFacts& facts) override
    {
        m_window->showKnownFields(facts.fileName, facts.columns, facts.disc);
    }

private:
    tags::ui::PropertiesWindow& window()
    {
        if (!m_window) {
            m_window = std::make_unique<tags::ui::PropertiesWindow>();
            // The list keeps the keyboard, so its arrow keys move the window along the rows.
            m_window->setAttribute(Qt::WA_ShowWithoutActivating);
            stackAbove(*m_window, m_list);
        }
        return *m_window;
    }
    void bringForward()
    {
        if (!m_window->isVisible())
            placeBeside(*m_window, m_list);
        m_window->show();
        m_window->raise();
    }

    QWidget& m_list;
    std::unique_ptr<tags::ui::PropertiesWindow> m_window;
};

} // namespace

using frame::FrameWindow;

Composition::Composition(const QString& appFolder, std::function<void()> prepareAppFolder)
    : m_prepareAppFolder(std::move(prepareAppFolder)), m_appFolder(appFolder),
      m_log(m_appFolder, [this] { return m_options.isOn(core::Option::EscribirLog); }),
      m_store(m_appFolder, m_options, m_log), m_sheetStore(m_appFolder),
      m_mainWindow({m_appFolder, m_options, m_windows, &m_notifyArea,
                    [this] { return sheetWindow().windowIcon(); }}),
      m_optionsWindow(m_appFolder, m_options, m_store, m_log), m_authorWindow(m_appFolder),
      m_trayMenu(m_windows)
{
    m_services = platform::createLinuxPlatform(platform::desktopPrompts(&m_mainWindow));
    m_dialogs.setParentWindow(&m_mainWindow);
    // The compound-file library's own warnings go to the activity log, not the terminal.
    database::setGsfMessageSink([this](const QString& line) { m_log.AnotarEnLog(line); });
    connectFrame();
}

bool Composition::start()
{
    showAsNubo();
    StartupSequence startup({m_appFolder, m_options, m_store, m_log, m_services, m_dialogs,
                             QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath(),
                             m_prepareAppFolder});
    if (startup.run(m_mainWindow) == StartupSequence::Outcome::EndProgram)
        return false;
    // A first start of an installed copy has only now laid out the pictures the windows made
    // so far looked for.
    showAsNubo();
    m_optionsWindow.loadPictures();
    m_authorWindow.loadPictures();
    m_list = std::make_unique<catalogue::ListWindow>(catalogue::ListWindowServices{
        m_appFolder, *m_services.drives, m_dialogs, *m_services.shell, m_options});
    connectList();
    connectSearch();
    connectPrint();
    connectCatalogueFiles();
    listenForLaterStarts();
    m_mainWindow.show();
    return true;
}

QString Composition::channelName()
{
    return InstanceChannel::nameFor(
        QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath());
}

// Everything the program keeps is on disc by now (options, log and catalogues are written as
// they change), so freeing a million rows and every window would only delay the end.
void Composition::endProcess(int status)
{
    std::fflush(nullptr);
    std::_Exit(status);
}

// A later start ends at once, silently; this instance comes forward in its place, with the
// catalogue the later start was given.
void Composition::listenForLaterStarts()
{
    m_channel = std::make_unique<InstanceChannel>(channelName());
    QObject::connect(m_channel.get(), &InstanceChannel::requested, &m_mainWindow,
                     [this](const QString& catalogue) {
                         m_mainWindow.bringToFront();
                         if (!catalogue.isEmpty())
                             openAtStart(catalogue);
                     });
}

void Composition::openAtStart(const QString& path)
{
    // Once the event loop runs, so the list window is on screen while the rows come in.
    QTimer::singleShot(0, &m_mainWindow, [this, path] {
        m_windows.showWindow(FrameWindow::List);
        m_files->openFile(QFileInfo(path).absoluteFilePath());
    });
}

void Composition::connectFrame()
{
    m_windows.connectWindow(FrameWindow::Options, &m_optionsWindow);
    m_windows.connectWindow(FrameWindow::Author, &m_authorWindow);
    m_windows.setEndProgram([this] { endProgram(); });
    m_mainWindow.setTrayMenu(&m_trayMenu);
    QObject::connect(&m_optionsWindow, &frame::Form5::closed, &m_mainWindow,
                     [this] { m_mainWindow.playClosingFrames(2); });
    QObject::connect(&m_authorWindow, &frame::Form6::closed, &m_mainWindow,
                     [this] { m_mainWindow.playClosingFrames(5); });
}

// Every window shows the program's logo, and taskbars group them under the program's
// desktop entry.
void Composition::showAsNubo()
{
    QGuiApplication::setDesktopFileName(QStringLiteral("nubo"));
    QGuiApplication::setWindowIcon(
        QIcon(m_appFolder.resolve(QStringLiteral("\\icons\\Nubologo.ico"))));
}

// A running search, save or load is stopped first: their loops let events run from inside the
// event loop, so the program could only end once they had finished. A stopped save writes
// nothing, so the previous file stays as it was.
void Composition::endProgram()
{
    if (m_search)
        m_search->windows().stop();
    if (m_files)
        m_files->transfer().stopForExit();
    // A wait for the rows' details ends too: the reads end with the process.
    if (m_list)
        m_list->catalogue.stopDetailWait();
    // The program's end skips the destructors (see main), so the channel goes now.
    m_channel.reset();
    QCoreApplication::exit(0);
}

void Composition::connectList()
{
    catalogue::Form1& form = m_list->form;
    m_windows.connectWindow(FrameWindow::List, &form);
    m_windows.setListExit([&form] { return form.exitProgram(); });
    // The exit button empties the list without the save question.
    m_windows.setEmptyList([this] { m_list->catalogue.list().clearForExit(); });
    QObject::connect(&form, &catalogue::Form1::endProgramRequested, qApp, [this] { endProgram(); });
    QObject::connect(&form, &catalogue::Form1::sceneStepBackRequested, &m_mainWindow,
                     [this] { m_mainWindow.playClosingFrames(1); });
    QObject::connect(&form, &catalogue::Form1::optionsWindowRequested, &m_optionsWindow,
                     [this] { m_windows.showWindow(FrameWindow::Options); });
    QObject::connect(&form, &catalogue::Form1::sheetConfigurationRequested, &form, [this, &form] {
        database::Form7& window = sheetWindow();
        // The first time over the list window that asks for it; later where it was left.
        if (!window.isVisible() && !window.testAttribute(Qt::WA_Moved))
            window.move(form.frameGeometry().center() - window.rect().center());
        stackAbove(window, form);
        window.show();
        window.raise();
        window.activateWindow();
    });
    m_properties = std::make_unique<PropertiesViewer>(form);
    form.setPropertiesViewer(m_properties.get());
    QObject::connect(&m_optionsWindow, &frame::Form5::ChkproClicked, &form,
                     [&form] { form.forgetDetails(); });
}

void Composition::connectSearch()
{
    catalogue::Form1& form = m_list->form;
    m_search = std::make_unique<ListWindowSearch>(
        *m_list,
        ListWindowSearch::Services{m_appFolder, m_dialogs, *m_services.drives, *m_services.volumes,
                                   *m_services.directories, *m_services.tray});
    search::SearchWindows& searchWindows = m_search->windows();
    searchWindows.controller.setCancelFlagRaiser([&form] { form.requestCancel(); });
    QObject::connect(&form, &catalogue::Form1::searchWindowRequested, &searchWindows.form3,
                     [&searchWindows] { searchWindows.showSearchWindow(); });
    m_windows.connectWindow(FrameWindow::Search, &searchWindows.form3);
    QObject::connect(&searchWindows.form3, &search::Form3::closed, &m_mainWindow,
                     [this] { m_mainWindow.playClosingFrames(4); });
}

void Composition::connectPrint()
{
    // Every "Imprimir tapa..." loads the cover window afresh from the list as it is now.
    QObject::connect(&m_list->form, &catalogue::Form1::printCoverRequested, &m_list->form, [this] {
        if (!m_cover)
            m_cover = std::make_unique<print::FormPrint1>(m_dialogs, m_list->catalogue.list(),
                                                          &m_list->form.shownRows());
        stackAbove(*m_cover, m_list->form);
        m_cover->showCover();
    });
}

// "&Guardar", "Guardar &Como", "&Desde Archivo" and the save step of emptying the list.
void Composition::connectCatalogueFiles()
{
    catalogue::Form1& form = m_list->form;
    m_fileView = std::make_unique<database::ListWindowFileView>(form);
    m_files = std::make_unique<database::CatalogueFileFlow>(database::TransferServices{
        m_list->catalogue, *m_fileView, m_dialogs, m_log, m_options, m_sheetSettings});
    m_list->catalogue.setSaveFlow(m_files.get());
    database::CatalogueFileFlow* files = m_files.get();
    QObject::connect(&form, &catalogue::Form1::saveRequested, &form, [files] { files->save(); });
    QObject::connect(&form, &catalogue::Form1::saveAsRequested, &form,
                     [files] { files->saveAs(); });
    QObject::connect(&form, &catalogue::Form1::loadCatalogueRequested, &form,
                     [files] { files->loadFromFile(); });
    QObject::connect(&form, &catalogue::Form1::cancelRequested, &files->transfer(),
                     &database::CatalogueTransfer::raiseCancelFlag);
    // A loaded workbook's sheet name shows in the sheet window if it is open.
    QObject::connect(&files->transfer(), &database::CatalogueTransfer::sheetNameChanged, &form,
                     [this] {
                         if (m_sheetWindow)
                             m_sheetWindow->refresh();
                     });
}

database::Form7& Composition::sheetWindow()
{
    if (!m_sheetWindow) {
        m_sheetWindow = std::make_unique<database::Form7>(database::Form7::Deps{
            m_appFolder, m_sheetSettings, m_sheetStore, m_dialogs, m_options, m_log});
    }
    return *m_sheetWindow;
}

} // namespace nubo::app
