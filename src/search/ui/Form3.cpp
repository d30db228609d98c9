// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/ui/Form3.h"

#include "platform/ui/NamedChild.h"
#include "platform/ui/PictureFile.h"

#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QTreeView>

namespace nubo::search {

namespace {

using Command = SearchWindowController::Command;

// The character a key gives, as a Windows key filter sees it (Ctrl+B is 2, Enter is 13).
int characterOf(const QKeyEvent* key)
{
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
        return 13;
    if ((key->modifiers() & Qt::ControlModifier) && key->key() >= Qt::Key_A &&
        key->key() <= Qt::Key_Z)
        return key->key() - Qt::Key_A + 1;
    return key->text().isEmpty() ? 0 : key->text().at(0).unicode();
}

} // namespace

// One image button's pictures, tooltip and command. The names differ in case exactly as the
// program has always named them, and the resolver finds them either way.
struct Form3::ImageButtonRole
{
    QLabel* Form3::*button;
    const char* off;
    const char* on;
    const char* hit;
    const char* tooltip;
    Command command;
};

const Form3::ImageButtonRole Form3::kRoles[kRoleCount] = {
    {&Form3::PicSearch, "\\bitmap\\form3Bot1off.jpg", "\\bitmap\\form3Bot1on.jpg",
     "\\bitmap\\form3bot1hit.jpg", "Busca en la direccion indicada", Command::Search},
    {&Form3::PicSearchCDROM, "\\bitmap\\form3Bot2off.jpg", "\\bitmap\\form3Bot2on.jpg",
     "\\bitmap\\form3bot2hit.jpg", "Busca en todo el CD-ROM", Command::SearchCd},
    {&Form3::PicLista, "\\bitmap\\form3bot3off.jpg", "\\bitmap\\form3Bot3on.jpg",
     "\\bitmap\\form3bot3hit.jpg", "Cambiar a Ventana Lista", Command::ShowList},
};

Form3::Form3(const platform::AppFolder& app, const platform::IDrives& drives, QWidget* parent)
    : QWidget(parent), m_app(app), m_drives(drives), m_hover(app, this)
{
    setObjectName(QStringLiteral("Form3"));
    setWindowTitle(QStringLiteral("Direccion de Busqueda"));
    setMouseTracking(true);
    createControls();
    placeControls();
    connectControls();
    loadPictures();
    Combo1->addItems({QStringLiteral("*.mp3"), QStringLiteral("*.wav"), QStringLiteral("*.wma"),
                      QStringLiteral("*.cda"), QStringLiteral("*.*")});
    Combo1->setCurrentIndex(0);
    refreshDrives();
}

void Form3::createControls()
{
    PicLista = platform::namedChild<QLabel>(this, "PicLista");
    PicSearchCDROM = platform::namedChild<QLabel>(this, "PicSearchCDROM");
    PicSearch = platform::namedChild<QLabel>(this, "PicSearch");
    for (QLabel* button : {PicLista, PicSearchCDROM, PicSearch}) {
        button->setScaledContents(true);
        button->setCursor(Qt::PointingHandCursor);
    }
    Combo1 = platform::namedChild<QComboBox>(this, "Combo1");
    Combo1->setEditable(true);
    Combo1->setInsertPolicy(QComboBox::NoInsert);
    Combo1->setToolTip(
        QStringLiteral("Extencion de los archivos a buscar.Se permiten comodines(*)\n"
                       "Varias extensiones separadas por \";\", por ejemplo *.flac;*.ogg"));
    Command4 = platform::namedChild<QPushButton>(this, "Command4", QStringLiteral("&Ver lista"));
    Command4->setToolTip(QStringLiteral("Cierra el cuadro y muestra el de Lista"));
    Command2 = platform::namedChild<QPushButton>(this, "Command2",
                                                 QStringLiteral("Buscar en todo el &CD-ROM"));
    Command2->setToolTip(QStringLiteral("Busca archivos en toda la unidad de CD-ROM"));
    Command1 = platform::namedChild<QPushButton>(this, "Command1", QStringLiteral("&Buscar"));
    Command1->setToolTip(QStringLiteral("Buscar archivos en la direccion seleccionada"));
    Drive1 = platform::namedChild<QComboBox>(this, "Drive1");
    Dir1 = platform::namedChild<QTreeView>(this, "Dir1");
    Label1 =
        platform::namedChild<QLabel>(this, "Label1", QStringLiteral("Buscar archivosde tipo:"));

    m_folders = new QFileSystemModel(this);
    m_folders->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
    m_folders->setReadOnly(true);
    Dir1->setModel(m_folders);
    for (int column = 1; column < m_folders->columnCount(); ++column)
        Dir1->hideColumn(column);
    Dir1->header()->hide();
}

void Form3::placeControls()
{
    setFixedSize(460, 350);
    Label1->setGeometry(16, 14, 150, 22);
    Combo1->setGeometry(170, 12, 120, 26);
    Drive1->setGeometry(16, 48, 274, 26);
    Dir1->setGeometry(16, 80, 274, 180);
    Command1->setGeometry(16, 270, 90, 30);
    Command2->setGeometry(112, 270, 178, 30);
    Command4->setGeometry(16, 306, 90, 30);
    PicSearch->setGeometry(320, 40, 120, 70);
    PicSearchCDROM->setGeometry(320, 130, 120, 70);
    PicLista->setGeometry(320, 220, 120, 70);
}

void Form3::connectControls()
{
    connect(Command1, &QPushButton::clicked, this, [this] { runCommand(Command::Search); });
    connect(Command2, &QPushButton::clicked, this, [this] { runCommand(Command::SearchCd); });
    connect(Command4, &QPushButton::clicked, this, [this] { runCommand(Command::ShowList); });
    connect(Drive1, &QComboBox::currentIndexChanged, this, &Form3::driveChanged);
    connect(m_folders, &QFileSystemModel::directoryLoaded, this, [this](const QString& loaded) {
        if (m_folder.startsWith(DriveList::withSlash(loaded)))
            revealFolder();
    });
    connect(Dir1, &QTreeView::clicked, this,
            [this](const QModelIndex& index) { m_folder = m_folders->filePath(index); });
    connect(Dir1->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& index) {
                if (index.isValid())
                    m_folder = m_folders->filePath(index);
            });
    for (QWidget* filtered :
         {static_cast<QWidget*>(Combo1), static_cast<QWidget*>(Combo1->lineEdit()),
          static_cast<QWidget*>(Drive1), static_cast<QWidget*>(Dir1),
          static_cast<QWidget*>(PicSearch), static_cast<QWidget*>(PicSearchCDROM),
          static_cast<QWidget*>(PicLista)})
        filtered->installEventFilter(this);
}

void Form3::loadPictures()
{
    m_background = platform::loadPicture(m_app, QStringLiteral("\\bitmap\\mainform3.jpg"));
    for (const ImageButtonRole& role : kRoles)
        m_hover.add(this->*role.button, QLatin1String(role.off), QLatin1String(role.on),
                    QLatin1String(role.hit));
}

void Form3::refreshDrives()
{
    const QString current = Drive1->currentText();
    m_drives.refresh();
    const QSignalBlocker blocker(Drive1);
    Drive1->clear();
    Drive1->addItems(m_drives.texts());
    // The first time, the drive that holds the user's home folder, as Windows opens on the
    // current folder of the current drive; then the drive chosen last.
    const bool first = m_folder.isEmpty();
    const int index = first ? m_drives.indexHolding(QDir::homePath()) : m_drives.indexOf(current);
    Drive1->setCurrentIndex(index >= 0 ? index : 0);
    if (first || index < 0)
        driveChanged(Drive1->currentIndex());
    if (first && index >= 0)
        setFolderPath(QDir::homePath());
}

void Form3::driveChanged(int index)
{
    if (index < 0 || index >= m_drives.entries().size())
        return;
    const platform::DriveInfo& drive = m_drives.entries()[index];
    if (!drive.hasMedium)
        return;
    m_folders->setRootPath(drive.mountPoint);
    Dir1->setRootIndex(m_folders->index(drive.mountPoint));
    setFolderPath(drive.mountPoint);
}

QString Form3::currentDriveText() const
{
    return Drive1->currentText();
}

int Form3::selectDrive(const QString& text)
{
    refreshDrives();
    if (const int error = m_drives.check(text))
        return error;
    Drive1->setCurrentIndex(m_drives.indexOf(text));
    return 0;
}

void Form3::setFolderPath(const QString& path)
{
    m_folder = path;
    const QModelIndex index = m_folders->index(path);
    if (index.isValid() && index != Dir1->rootIndex()) {
        const QSignalBlocker blocker(Dir1->selectionModel());
        Dir1->setCurrentIndex(index);
        Dir1->scrollTo(index);
    }
}

QString Form3::maskText() const
{
    return Combo1->currentText();
}

void Form3::setMaskText(const QString& mask)
{
    Combo1->setEditText(mask);
}

void Form3::showWindow()
{
    show();
    raise();
    activateWindow();
}

// The chosen folder shown open in the tree: its parents expanded and the view scrolled to it,
// again as the model lists the folders above it (it reads them in the background).
void Form3::revealFolder()
{
    const QModelIndex index = m_folders->index(m_folder);
    if (!index.isValid() || index == Dir1->rootIndex())
        return;
    for (QModelIndex parent = index.parent(); parent.isValid() && parent != Dir1->rootIndex();
         parent = parent.parent())
        Dir1->expand(parent);
    Dir1->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

void Form3::runCommand(Command command)
{
    if (m_controller)
        m_controller->run(command);
}

// The pointer entering a button gives it its tooltip; a press shows its "hit" picture and runs
// its command.
bool Form3::imageButtonEvent(QObject* watched, QEvent* event)
{
    for (const ImageButtonRole& role : kRoles) {
        QLabel* button = this->*role.button;
        if (watched != button)
            continue;
        if (event->type() == QEvent::Enter)
            button->setToolTip(QString::fromUtf8(role.tooltip));
        if (event->type() != QEvent::MouseButtonPress)
            return false;
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
            m_hover.show(button, platform::HoverPictures::Face::Hit);
            runCommand(role.command);
        }
        return true;
    }
    return false;
}

bool Form3::eventFilter(QObject* watched, QEvent* event)
{
    if (imageButtonEvent(watched, event))
        return true;
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const bool inMaskBox = watched == Combo1 || watched == Combo1->lineEdit();
    const Command command = SearchWindowController::commandForKey(
        characterOf(static_cast<QKeyEvent*>(event)), inMaskBox);
    if (command == Command::None)
        return QWidget::eventFilter(watched, event);
    runCommand(command);
    return true;
}

void Form3::paintEvent(QPaintEvent* event)
{
    QWidget::paintEvent(event);
    if (m_background.isNull())
        return;
    QPainter painter(this);
    painter.drawPixmap(rect(), m_background);
}

void Form3::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    refreshDrives(); // drives come and go while the window is hidden
    revealFolder();
}

void Form3::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    emit closed();
}

} // namespace nubo::search
