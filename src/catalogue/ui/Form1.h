#pragma once

#include "catalogue/ListMode.h"
#include "catalogue/ui/HoverPictures.h"
#include "platform/AppFolder.h"

#include <QPixmap>
#include <QWidget>

class QAction;
class QActionGroup;
class QCheckBox;
class QGridLayout;
class QItemSelection;
class QLabel;
class QLineEdit;
class QMenu;
class QMenuBar;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QTimer;

namespace nubo::core {
class Options;
}

namespace nubo::catalogue {

class Catalogue;
class CatalogueView;
class DropHandler;
class EntryOpener;
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
class Form1 final : public QWidget
{
    Q_OBJECT
public:
    explicit Form1(const Form1Services& services, QWidget* parent = nullptr);

    void setSearchLauncher(ISearchLauncher* launcher);

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
    QTimer* Timer3 = nullptr; // message erasing (the message line's own timer)

    QMenuBar* menuBar = nullptr;
    QMenu* Arch1 = nullptr;
    QMenu* New1 = nullptr;
    QAction* BusFile = nullptr;
    QAction* DesdeA = nullptr;
    QAction* guardarb = nullptr;
    QAction* guardarc = nullptr;
    QAction* mnuImprimirTapa = nullptr; // "&Imprimir tapa..." (Ctrl+P): opens FormPrint1
    QAction* vaciarl = nullptr;
    QAction* ExitProgram = nullptr;
    QAction* mnuFindFiles = nullptr;
    QMenu* mnuOpcionesLista = nullptr;
    QAction* Rep = nullptr;
    QAction* Agr1 = nullptr;
    QAction* Eli = nullptr;
    QAction* ChngeName = nullptr;
    QMenu* Mod1 = nullptr;
    QAction* Funcional = nullptr;
    QAction* Edit = nullptr;
    QAction* Mover = nullptr;
    QAction* Reest = nullptr;

    ListMode listMode() const { return m_mode; }
    bool isOnTop() const;
    // The search runs this when it has finished: six ticks of caption flashing.
    void startFlashing();
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
    void mouseMoveEvent(QMouseEvent* event) override;

private:
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
    void connectList();
    void loadPictures();
    void installKeyPreview();

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
    void enableListCommands(bool enabled);
    void showRightClickMenu(const QPoint& globalPos);
    void openOnDoubleClick();
    void showDetailsOf(int position);
    void showDetailsIfOn(int position);
    void syncSelection(const QItemSelection& selected, const QItemSelection& deselected);
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
    HoverPictures m_hover;
    QActionGroup* m_modes = nullptr;
    ListMode m_mode = ListMode::Funcional;
    QString m_detailsText;
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
