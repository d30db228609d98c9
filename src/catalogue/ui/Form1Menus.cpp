// SPDX-License-Identifier: GPL-3.0-or-later
// The list window's menus and its connections to the catalogue.
#include "catalogue/Catalogue.h"
#include "catalogue/Colours.h"
#include "catalogue/DropHandler.h"
#include "catalogue/EntryOpener.h"
#include "catalogue/IPropertiesViewer.h"
#include "catalogue/ISearchLauncher.h"
#include "catalogue/ListFilter.h"
#include "catalogue/RowDetails.h"
#include "catalogue/ui/ColumnChooser.h"
#include "catalogue/ui/DiscsWindow.h"
#include "catalogue/ui/FindBar.h"
#include "catalogue/ui/Form1.h"

#include <QActionGroup>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

#include <utility>

namespace nubo::catalogue {

namespace {

QAction* item(QMenu* menu, const char* name, const QString& caption)
{
    QAction* action = menu->addAction(caption);
    action->setObjectName(QLatin1String(name));
    return action;
}

// An entry whose choice runs slot on receiver.
template <class Receiver, class Slot>
QAction* item(QMenu* menu, const char* name, const QString& caption, Receiver* receiver, Slot slot)
{
    QAction* action = item(menu, name, caption);
    QObject::connect(action, &QAction::triggered, receiver, slot);
    return action;
}

QMenu* submenu(QWidget* parent, const char* name, const QString& caption)
{
    auto* menu = new QMenu(caption, parent);
    menu->setObjectName(QLatin1String(name));
    menu->menuAction()->setObjectName(QLatin1String(name));
    return menu;
}

} // namespace

void Form1::createMenus()
{
    menuBar = new QMenuBar(this);
    menuBar->setObjectName(QStringLiteral("menuBar"));
    createListMenu();
    mnuFindFiles = menuBar->addAction(QStringLiteral("Buscar Archivo(s) ..."));
    mnuFindFiles->setObjectName(QStringLiteral("mnuFindFiles"));
    mnuFindFiles->setVisible(false); // the search shows it while it runs
    createFileOptionsMenu();
}

void Form1::createListMenu()
{
    QMenu* list = submenu(this, "Arch1", QStringLiteral("&Lista"));
    QMenu* add = submenu(list, "New1", QStringLiteral("&Agregar"));
    item(add, "BusFile", QStringLiteral("&Buscar Archivos"), this, &Form1::searchWindowRequested);
    m_listCommands.append(item(add, "DesdeA", QStringLiteral("&Desde Archivo"), this,
                               &Form1::loadCatalogueRequested));
    list->addMenu(add);
    m_listCommands.append(
        item(list, "guardarb", QStringLiteral("&Guardar"), this, &Form1::saveRequested));
    m_listCommands.append(
        item(list, "guardarc", QStringLiteral("Guardar &Como"), this, &Form1::saveAsRequested));
    // Our own entry: the cover window has no other way in.
    item(list, "mnuImprimirTapa", QStringLiteral("&Imprimir tapa..."), this,
         &Form1::printCoverRequested)
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    item(list, "mnuBuscarLista", QStringLiteral("&Buscar en la lista..."), this, [this] {
        (void)m_catalogue.waitForDetails();
        m_findBar->open();
    })->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_F));
    // Our own entry: the disc record of each group, where the user says where each disc is.
    item(list, "mnuDiscos", QStringLiteral("&Discos..."), this, &Form1::showDiscs)
        ->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_D));
    // Our own entry: the header's right-click menu, for the keyboard.
    list->addMenu(m_columns->menu());
    m_listCommands.append(
        item(list, "vaciarl", QStringLiteral("&Vaciar"), &m_catalogue, &Catalogue::EmptyList));
    list->addSeparator();
    item(list, "ExitProgram", QStringLiteral("&Salir"), this, &Form1::exitProgram);
    menuBar->addMenu(list);
}

void Form1::createFileOptionsMenu()
{
    mnuOpcionesLista = submenu(this, "mnuOpcionesLista", QStringLiteral("Opciones de &Archivo"));
    QMenu* options = mnuOpcionesLista;
    m_fileOptions = {
        item(options, "Rep", QStringLiteral("&Reproducir"), this,
             [this] { m_opener.PlaySelectedEntry(focusedPosition()); }),
        item(options, "Agr1", QStringLiteral("Agregar a la &lista del reproductor"), this,
             [this] { m_opener.EnqueueSelectedEntries(selectedPositions()); }),
        item(options, "Eli", QStringLiteral("&Eliminar de la lista"), this,
             &Form1::deleteSelectedRows),
        item(options, "ChngeName", QStringLiteral("&Cambiar Nombre"), this,
             &Form1::editFocusedName),
    };
    m_listCommands << m_fileOptions.at(2) << m_fileOptions.at(3);
    QMenu* modes = submenu(options, "Mod1", QStringLiteral("&Modo Lista"));
    Funcional = item(modes, "Funcional", QStringLiteral("&Funcional(Predeterminado)"), this,
                     [this] { chooseMode(ListMode::Funcional); });
    Edit = item(modes, "Edit", QStringLiteral("&Editar"), this,
                [this] { chooseMode(ListMode::Edit); });
    Mover = item(modes, "Mover", QStringLiteral("&Mover"), this,
                 [this] { chooseMode(ListMode::Mover); });
    modes->addSeparator();
    item(modes, "Reest", QStringLiteral("&Reestablecer"), this, [this] {
        restoreColumns();
        applyMode(ListMode::Funcional);
    });
    options->addMenu(modes);
    // Our own entry: every tag and the audio properties of the one selected file.
    // A row whose file cannot be found shows what the catalogue keeps of it and of its disc.
    mnuPropiedades =
        item(options, "mnuPropiedades", QStringLiteral("&Propiedades..."), this, [this] {
            const int position = selectedPosition();
            if (!m_properties || position < 0)
                return;
            const QString path = m_details.entryPath(m_catalogue.list(), position);
            if (path.isEmpty())
                m_properties->showRowFacts(factsOf(position));
            else if (!m_opener.refuseNotUtf8Name(path))
                m_properties->showProperties(path);
        });
    menuBar->addMenu(options);
    connect(options, &QMenu::aboutToShow, this, [this] {
        mnuPropiedades->setEnabled(rulesOf(m_mode).popupEnabled && selectedPosition() >= 0);
    });

    m_modes = new QActionGroup(this);
    m_modes->setExclusionPolicy(QActionGroup::ExclusionPolicy::Exclusive);
    for (QAction* mode : {Funcional, Edit, Mover}) {
        mode->setCheckable(true);
        m_modes->addAction(mode);
    }
    Funcional->setChecked(true);
}

void Form1::showDiscs()
{
    if (!m_discsWindow)
        m_discsWindow = new DiscsWindow(m_catalogue, m_app, this);
    m_discsWindow->open();
}

void Form1::connectCatalogue()
{
    // The count line follows the rows the list shows, so a long search repaints it once per
    // batch of rows rather than once per file.
    connect(&m_catalogue, &Catalogue::countLineChanged, this, [this](const QString& text) {
        m_waitingCountLine = m_catalogue.list().pendingCount() > 0;
        if (!m_waitingCountLine)
            Label2->setText(text);
    });
    const auto showWaitingCountLine = [this] {
        if (std::exchange(m_waitingCountLine, false))
            Label2->setText(m_catalogue.countLine());
    };
    connect(&m_catalogue.list(), &QAbstractItemModel::rowsInserted, this, showWaitingCountLine);
    connect(&m_catalogue.list(), &QAbstractItemModel::modelReset, this, showWaitingCountLine);
    connect(&m_catalogue, &Catalogue::currentFileChanged, lblCurList, &QLabel::setText);
    connect(&m_catalogue, &Catalogue::busyChanged, this, &Form1::refreshCommands);
    connect(m_columns, &ColumnChooser::choiceNotKept, this, [this] {
        m_catalogue.ShowInfoMessage(QStringLiteral("No se pudo guardar que columnas se muestran"),
                                    5000, colours::kRed);
    });
    connect(&m_catalogue.info(), &InfoMessage::changed, this,
            [this](const QString& text, quint32 colour) {
                LblInfo->setText(text);
                setMessageColour(colour);
            });
    connect(Command7, &QPushButton::clicked, this, &Form1::searchWindowRequested);
    connect(Command6, &QPushButton::clicked, &m_catalogue, &Catalogue::EmptyList);
    connect(Command1, &QPushButton::clicked, this, [this] {
        if (m_search)
            m_search->RunSearch();
    });
    connect(mnuFindFiles, &QAction::triggered, Command1, &QPushButton::click);
    connect(Timer1, &QTimer::timeout, this, &Form1::flashTick);
    connect(Timer2, &QTimer::timeout, this, &Form1::growTick);
}

// Each command's state follows from the mode and from whether a save or load has the list.
// The file options follow the mode (the mode submenu stays reachable, as the way back); the
// commands that change the rows or start another save or load are greyed while the list is
// busy (the catalogue refuses them then in any case, keys included).
void Form1::refreshCommands()
{
    const bool free = !m_catalogue.isBusy();
    const bool popup = rulesOf(m_mode).popupEnabled;
    for (QAction* command : std::as_const(m_listCommands))
        command->setEnabled(free);
    for (QAction* option : std::as_const(m_fileOptions))
        option->setEnabled(popup && (free || !m_listCommands.contains(option)));
    Command6->setEnabled(free);
}

// An open properties window shows the newly selected row: its file, or what the catalogue
// keeps of it when the file is out of reach.
void Form1::propertiesFollowSelection()
{
    if (!m_properties || !m_properties->isOpen())
        return;
    const int position = selectedPosition();
    if (position < 0)
        return;
    if (const QString path = m_details.entryPath(m_catalogue.list(), position); !path.isEmpty())
        m_properties->followSelection(path);
    else
        m_properties->followRowFacts(factsOf(position));
}

void Form1::connectList()
{
    connect(ListView1->header(), &QHeaderView::sectionClicked, &m_catalogue,
            &Catalogue::SortByColumn);
    // The drop is finished first: a folder's question and walk must not hold the dragging
    // program until the walk ends.
    connect(
        ListView1, &CatalogueView::filesDropped, this,
        [this](const QStringList& names) { m_drops.handleDrop(names); }, Qt::QueuedConnection);
    connect(ListView1, &CatalogueView::editNameRequested, this, &Form1::editFocusedName);
    connect(ListView1, &CatalogueView::deleteRequested, this, &Form1::deleteSelectedRows);
    connect(ListView1, &CatalogueView::arrowReleased, this,
            [this] { showDetailsIfOn(focusedPosition()); });
    connect(ListView1, &CatalogueView::clicked, this,
            [this](const QModelIndex& index) { showDetailsIfOn(m_filter->positionOf(index)); });
    connect(ListView1, &CatalogueView::pointerOverRow, this, [this](const QModelIndex& index) {
        const int position = m_filter->positionOf(index);
        // Details are read again only when the pointer reaches another row.
        if (position >= 0 && position != m_lastPointerRow) {
            m_lastPointerRow = position;
            showDetailsIfOn(position);
        }
    });
    connect(ListView1, &CatalogueView::rightButtonReleased, this, &Form1::showRightClickMenu);
    connect(ListView1, &CatalogueView::doubleClicked, this, &Form1::openOnDoubleClick);
    connect(ListView1->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &Form1::propertiesFollowSelection);
    // Once rows move or go, the row under the pointer is another one.
    const auto forgetPointerRow = [this] { m_lastPointerRow = -1; };
    connect(m_filter, &QAbstractItemModel::layoutChanged, this, forgetPointerRow);
    connect(m_filter, &QAbstractItemModel::rowsInserted, this, forgetPointerRow);
    connect(m_filter, &QAbstractItemModel::rowsRemoved, this, forgetPointerRow);
    connect(m_filter, &QAbstractItemModel::modelReset, this, forgetPointerRow);
    const CatalogueList* list = &m_catalogue.list();
    connect(list, &QAbstractItemModel::rowsRemoved, this, &Form1::forgetDetailsOfGoneRow);
    connect(list, &QAbstractItemModel::modelReset, this, &Form1::forgetDetailsOfGoneRow);
    applyMode(ListMode::Funcional);
}

} // namespace nubo::catalogue
