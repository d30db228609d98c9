// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/IListWindow.h"
#include "catalogue/ListMode.h"
#include "catalogue/RowFacts.h"
#include "catalogue/ui/CatalogueView.h"
#include "platform/AppFolder.h"
#include "platform/ui/HoverPictures.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QPersistentModelIndex>
#include <QPixmap>
#include <QProgressBar>
#include <QTimer>
#include <QWidget>

#include <vector>

class QActionGroup;
class QCheckBox;
class QGridLayout;
class QMenu;
class QMenuBar;
class QPlainTextEdit;
class QPushButton;

namespace nubo::core {
class Options;
}

namespace nubo::catalogue {

class Catalogue;
class DiscsWindow;
class ColumnChooser;
class DropHandler;
class EntryOpener;
class FindBar;
class ListFilter;
class IPropertiesViewer;
class ISearchLauncher;
class RowDetails;

// The services the list window forwards its commands to.
struct Form1Services
{
    const platform::AppFolder& app;
    Catalogue& catalogue;
    EntryOpener& opener;
    const RowDetails& details;
    DropHandler& drops;
    const core::Options& options;
};

// The list window: the catalogue rows with their menus, keys, modes, dropped files and the
// status lines; commands of other windows leave as signals.
class Form1 final : public QWidget, public IListWindow
{
    Q_OBJECT
public:
    explicit Form1(const Form1Services& services, QWidget* parent = nullptr);

    void setSearchLauncher(ISearchLauncher* launcher);
    // "&Propiedades..." opens this viewer, which then follows the selected row.
    void setPropertiesViewer(IPropertiesViewer* viewer) { m_properties = viewer; }

    ListMode listMode() const { return m_mode; }
    // The rows the list shows: all of them, or those a find leaves in sight.
    const ListFilter& shownRows() const { return *m_filter; }
    bool isOnTop() const;
    // The position of the row that has the focus, or -1.
    int focusedPosition() const;
    // The tag details box's text as the tag reader left it (line breaks CR LF).
    const QString& detailsText() const { return m_detailsText; }
    // "&Salir", the close box and the tray's "&Quitar": EmptyList first, then the window goes.
    // False when the rows stayed because a save the user asked for did not happen, or a save
    // or load has the list: the window then stays, with the reason on its message line.
    bool exitProgram();
    // Empties the details box and the text a blank-title tag would append to.
    void forgetDetails();
    // What Escape does to long loops, for the search window's own cancel.
    void requestCancel() { emit cancelRequested(); }

    // IListWindow
    void showProgress(int maximum) override;
    void setProgress(int value) override { ProgressBar1->setValue(value); }
    void hideProgress() override { ProgressBar1->hide(); }
    void setListEnabled(bool enabled) override { ListView1->setEnabled(enabled); }
    void scrollListToEnd() override { ListView1->scrollToBottom(); }
    void setFolderStrip(const QString& text) override;
    QString volumeName() const override { return txtvolumename->text(); }

    // What a search shows on the window; the composition connects the engine's reports here.
    void setCaption(const QString& caption) { setWindowTitle(caption); }
    void setBusyCursor(bool busy);
    void showAndRaise();
    // Six ticks of caption flashing.
    void startFlashing() { Timer1->start(); }
    void showFolderStrip() { Picture1->show(); }
    void setFindMenuVisible(bool visible) { mnuFindFiles->setVisible(visible); }
    void setFindMenuCaption(const QString& caption) { mnuFindFiles->setText(caption); }
    void setDriveSpace(const QString& total, const QString& free);
    void setVolumeName(const QString& name) { txtvolumename->setText(name); }
    void setVolumeDetails(const QString& serial, const QString& maxComponentLength,
                          const QString& fileSystem, const QString& flags);

signals:
    void searchWindowRequested();
    void optionsWindowRequested();
    void sheetConfigurationRequested();
    void loadCatalogueRequested();
    void saveRequested();
    void saveAsRequested();
    void printCoverRequested();
    void cancelRequested(); // Escape: the module-level cancel flag of long loops
    void sceneStepBackRequested();
    void endProgramRequested(); // F12

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // The controls, named as their objects are; tests find them by those names.
    CatalogueView* ListView1 = nullptr;
    QLabel* Label2 = nullptr;
    QLabel* LblInfo = nullptr;
    QLabel* lblCurList = nullptr;
    QLineEdit* txtvolumename = nullptr;
    QPushButton* Command7 = nullptr;
    QPushButton* Command6 = nullptr;
    QPushButton* Command1 = nullptr;
    QProgressBar* ProgressBar1 = nullptr;
    QCheckBox* Check1 = nullptr;
    QLabel* PicExcelConf = nullptr;
    QLabel* PicOnTop = nullptr;
    QLabel* Picture2 = nullptr;
    QLabel* Picture4 = nullptr;
    QLabel* Picture1 = nullptr;
    QLabel* LblBytesLibres = nullptr;
    QLabel* LbltotalBytes = nullptr;
    QLabel* lblFileSystem = nullptr;
    QLabel* lblFlags = nullptr;
    QLabel* lblMaxComponentLength = nullptr;
    QLabel* lblSerialNumber = nullptr;
    QPlainTextEdit* txtMp3Info = nullptr;
    QTimer* Timer1 = nullptr; // caption flashing
    QTimer* Timer2 = nullptr; // opening growth

    QMenuBar* menuBar = nullptr;
    QAction* mnuFindFiles = nullptr;
    QMenu* mnuOpcionesLista = nullptr;
    QAction* Funcional = nullptr;
    QAction* Edit = nullptr;
    QAction* Mover = nullptr;
    ListFilter* m_filter = nullptr; // the rows the list shows
    FindBar* m_findBar = nullptr;
    DiscsWindow* m_discsWindow = nullptr; // made when first asked for
    ColumnChooser* m_columns = nullptr;   // the detail columns shown
    QAction* mnuPropiedades = nullptr;

    void fitBackground();
    QPixmap m_background;
    void createControls();
    void createStatusControls();
    void createVolumeControls();
    void createMenus();
    void createListMenu();
    void createFileOptionsMenu();
    void layOutControls();
    QGridLayout* volumeGrid();
    void connectCatalogue();
    void propertiesFollowSelection();
    void connectList();
    void loadPictures();
    void installKeyPreview();
    void createFindBar();
    void showDiscs();

    bool handleWindowKey(int key, Qt::KeyboardModifiers modifiers);
    bool handleControlKey(int key);
    bool handlePicturePress(QObject* watched);
    void chooseMode(ListMode mode);
    void applyMode(ListMode mode);
    void restoreColumns();
    void editFocusedName();
    void toggleOnTop();
    void escape();
    void emergencyExit();
    void refreshCommands();
    void showRightClickMenu(const QPoint& globalPos);
    int selectedPosition() const;
    RowFacts factsOf(int position) const;
    void openOnDoubleClick();
    void showDetailsOf(int position);
    void showDetailsIfOn(int position);
    // Once the described row is gone, nothing in the box or the tooltip may speak of it.
    void forgetDetailsOfGoneRow();
    // The list positions of the rows selected in the view (rows in sight only), ascending.
    std::vector<int> selectedPositions() const;
    void deleteSelectedRows();
    void flashTick();
    void growTick();
    void makeRoomToGrow();
    void setMessageColour(quint32 rgb);

    const platform::AppFolder& m_app;
    Catalogue& m_catalogue;
    EntryOpener& m_opener;
    const RowDetails& m_details;
    DropHandler& m_drops;
    const core::Options& m_options;
    ISearchLauncher* m_search = nullptr;
    IPropertiesViewer* m_properties = nullptr;
    platform::HoverPictures m_hover;
    QActionGroup* m_modes = nullptr;
    QList<QAction*> m_fileOptions;  // the right-click menu's entries on the rows
    QList<QAction*> m_listCommands; // greyed while a save or load has the list
    ListMode m_mode = ListMode::Funcional;
    QString m_detailsText;
    QPersistentModelIndex m_detailsRow; // the row the details box describes
    int m_lastPointerRow = -1;
    bool m_waitingCountLine = false;
    quint32 m_messageColour = 0;
    int m_flashCount = 0;
    bool m_flashFlag = false;
    double m_growTarget = 0; // twips
    double m_growHeight = 0; // twips
    bool m_loaded = false;
};

} // namespace nubo::catalogue
