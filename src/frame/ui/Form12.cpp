// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ui/Form12.h"

#include "frame/HotCircle.h"
#include "frame/RegionFromImage.h"
#include "frame/SkinKeys.h"
#include "frame/SkinLayout.h"
#include "frame/WindowPlacement.h"
#include "frame/ui/Form8.h"
#include "frame/ui/GrowingOverlay.h"
#include "frame/ui/clsSystemTray.h"
#include "platform/ui/NamedChild.h"
#include "platform/ui/PictureFile.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QRegion>
#include <QScreen>
#include <QWindow>

namespace nubo::frame {

namespace {

constexpr qint16 kOpeningSteps = 12;

const std::array<const char*, 5> kTooltips = {
    "Permite abir y cerrar la ventana donde se editan los archivos a catalogar",
    "Mostar u ocultar el cuadro de opciones principales del programa",
    "Salir del programa",
    "Agregar archivos a la lista del catalogador",
    "Información sobre el autor",
};

// The window each round button opens and closes (Picture3 ends the program instead).
constexpr std::array<FrameWindow, 5> kTargets = {FrameWindow::List, FrameWindow::Options,
                                                 FrameWindow::List, FrameWindow::Search,
                                                 FrameWindow::Author};

// The hot spot stored in a .CUR file's first directory entry.
QPoint curHotSpot(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray head = file.read(14);
    if (head.size() < 14)
        return {};
    auto word = [&](int at) { return int(quint8(head[at])) | int(quint8(head[at + 1])) << 8; };
    return {word(10), word(12)};
}

} // namespace

Form12::Form12(Deps deps, QWidget* parent)
    : QWidget(parent), m_deps(deps), m_player(m_counters), m_minimizeFaces(deps.app, nullptr)
{
    setObjectName(QStringLiteral("Form12"));
    setWindowTitle(QStringLiteral("Nubo 1.5 Beta Version!!!"));
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    buildControls();
    resize(SkinLayout::skinSize);
    connect(&m_player, &FramePlayer::frameShown, this, [this](int button, int frame) {
        setFace(Picture[std::size_t(button - 1)],
                QStringLiteral("\\bitmap\\scene%1boton%2.jpg").arg(frame).arg(button));
    });
    connect(&m_player, &FramePlayer::finished, this, &Form12::runAction);
}

void Form12::buildControls()
{
    picMainSkin = platform::namedChild<QLabel>(this, QStringLiteral("picMainSkin"));
    picMainSkin->setGeometry(QRect(QPoint(), SkinLayout::skinSize));
    picMainSkin->setFocusPolicy(Qt::StrongFocus);
    picMainSkin->installEventFilter(this);
    for (std::size_t i = 0; i < Picture.size(); ++i) {
        Picture[i] =
            platform::namedChild<QLabel>(picMainSkin, QStringLiteral("Picture%1").arg(i + 1));
        Picture[i]->setGeometry(SkinLayout::buttons[i]);
        Picture[i]->setToolTip(QString::fromUtf8(kTooltips[i]));
        Picture[i]->installEventFilter(this);
    }
    PicMinimize = platform::namedChild<QLabel>(picMainSkin, QStringLiteral("PicMinimize"));
    PicMinimize->setGeometry(SkinLayout::minimize);
    PicMinimize->setToolTip(QStringLiteral("Minimiza la ventana"));
    PicMinimize->installEventFilter(this);
    setFocusProxy(picMainSkin);
}

bool Form12::animationsOn() const
{
    return m_deps.options.isOn(core::Option::PermitirAnims);
}

// A missing picture leaves the old face in place.
void Form12::setFace(QLabel* box, const QString& relative)
{
    const QPixmap face = platform::loadPicture(m_deps.app, relative);
    if (!face.isNull())
        box->setPixmap(face);
}

void Form12::pictureMouseDown(int button, QPointF point)
{
    if (button < 1 || button > 5 || !kButtonCircles[std::size_t(button - 1)].contains(point))
        return;
    m_player.play(m_counters.press(button, animationsOn()));
}

void Form12::picMinimizeMouseDown(QPointF point)
{
    if (kMinimizeCircle.contains(point))
        setWindowState(windowState() | Qt::WindowMinimized);
}

void Form12::skinKeyPress(int character)
{
    if (const std::optional<SkinKeyPress> press = frame::skinKeyPress(character))
        pictureMouseDown(press->button, press->point);
}

void Form12::playClosingFrames(int button)
{
    m_player.play(m_counters.closing(button, animationsOn()));
}

void Form12::runAction(int button, FaceAction action)
{
    const FrameWindow target = kTargets[std::size_t(button - 1)];
    switch (action) {
    case FaceAction::Exit:
        exitProgram();
        break;
    case FaceAction::Open:
        openWindow(target);
        break;
    case FaceAction::Close:
        m_deps.windows.hideWindow(target);
        break;
    }
}

void Form12::openWindow(FrameWindow window)
{
    if (window == FrameWindow::Options || window == FrameWindow::Author) {
        const QScreen* screen = this->screen();
        const QRect available = screen ? screen->availableGeometry() : QRect();
        const QRect options = m_deps.windows.windowRect(window);
        if (available.isValid() && options.isValid())
            m_deps.windows.moveWindow(window,
                                      besideWindow(frameGeometry(), options.size(), available));
    }
    AnimarVentana(m_deps.windows.windowRect(window), kOpeningSteps, animationsOn(), this);
    m_deps.windows.showWindow(window);
}

void Form12::exitProgram()
{
    if (SystemTray)
        SystemTray->RemoveIconFromSystemTray();
    m_deps.windows.emptyList();
    m_deps.windows.endProgram();
}

void Form12::AddIcon()
{
    // Asked even without a notification area: taking the sheet window's icon creates it.
    const QIcon icon = m_deps.trayIcon
                           ? m_deps.trayIcon()
                           : QIcon(m_deps.app.resolve(QStringLiteral("\\icons\\Nubologo.ico")));
    if (!m_deps.notifyArea)
        return;
    SystemTray = new clsSystemTray(*m_deps.notifyArea, this);
    SystemTray->setIcon(icon);
    SystemTray->setToolTipText(QStringLiteral("Nubo Beta Version 1.5!!!"));
    SystemTray->AddIconToSystemTray();
    connect(SystemTray, &clsSystemTray::LButtonDblClk, this, &Form12::SystemTray_LButtonDblClk);
    connect(SystemTray, &clsSystemTray::LButtonUp, this, &Form12::SystemTray_LButtonUp);
    connect(SystemTray, &clsSystemTray::RButtonUp, this, &Form12::SystemTray_RButtonUp);
    connect(SystemTray, &clsSystemTray::LButtonDown, this, &Form12::SystemTray_LButtonDown);
}

void Form12::SystemTray_LButtonDblClk()
{
    restoreFromTray();
}

// Desktops that send no double click on the icon (KDE Plasma, GNOME's AppIndicator) restore
// the window with a single click.
void Form12::SystemTray_LButtonUp()
{
    restoreFromTray();
}

void Form12::bringToFront()
{
    restoreFromTray();
    raise();
    activateWindow();
}

// A minimized or hidden main window comes back; a window already shown stays as it is.
void Form12::restoreFromTray()
{
    if (isVisible() && !(windowState() & Qt::WindowMinimized))
        return;
    if (!isVisible())
        move(pos()); // where it was hidden, not where the window manager would place it anew
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

// A close request from the window manager (Alt+F4, the taskbar) never leaves the program
// running without a window or an icon: it hides to a visible tray icon, or else ends the
// program as the exit button does.
void Form12::closeEvent(QCloseEvent* event)
{
    if (SystemTray && SystemTray->isIconVisible()) {
        QWidget::closeEvent(event);
        return;
    }
    event->ignore();
    exitProgram();
}

// The skin box keeps the window's size, so the buttons show even without the skin picture.
void Form12::resizeEvent(QResizeEvent* event)
{
    picMainSkin->setGeometry(rect());
    QWidget::resizeEvent(event);
}

void Form12::SystemTray_RButtonUp()
{
    if (m_trayMenu)
        m_trayMenu->popUpAt(QCursor::pos());
}

void Form12::SystemTray_LButtonDown()
{
    if (m_trayMenu)
        m_trayMenu->hideMenu();
}

bool Form12::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (watched == PicMinimize) {
        if (type == QEvent::MouseButtonPress)
            picMinimizeMouseDown(static_cast<QMouseEvent*>(event)->position());
        return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    }
    for (std::size_t i = 0; i < Picture.size(); ++i) {
        if (watched != Picture[i])
            continue;
        // A double click's second press arrives as MouseButtonDblClick and is not a press of
        // its own, so a double click does not open and close a window at once.
        if (type == QEvent::MouseButtonPress)
            pictureMouseDown(int(i) + 1, static_cast<QMouseEvent*>(event)->position());
        return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    }
    if (watched == picMainSkin) {
        if (type == QEvent::KeyPress) {
            auto* key = static_cast<QKeyEvent*>(event);
            const bool control = key->modifiers() & Qt::ControlModifier;
            const int k = key->key();
            // Only Ctrl combinations count: a plain Tab's text is character 9 too.
            if (control && k >= Qt::Key_A && k <= Qt::Key_Z)
                skinKeyPress(k - Qt::Key_A + 1);
            return true;
        }
        return dragWindow(watched, event);
    }
    return QWidget::eventFilter(watched, event);
}

// Dragging the skin with a button held moves the window as its title bar would. The window
// system's move starts only once the pointer has moved: started on the press itself, a quick
// click whose release beats the window manager's grab leaves the window stuck to the pointer.
// Where the window system cannot move it, the window follows the pointer itself.
bool Form12::dragWindow(QObject*, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonRelease) {
        m_drag = SkinDrag::None;
        return false;
    }
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseMove)
        return false;
    const QPoint at = static_cast<QMouseEvent*>(event)->globalPosition().toPoint();
    if (type == QEvent::MouseButtonPress) {
        picMainSkin->setFocus();
        m_drag = SkinDrag::Pressed;
        m_dragOffset = at - frameGeometry().topLeft();
        return true;
    }
    if (m_drag == SkinDrag::Pressed &&
        (at - frameGeometry().topLeft() - m_dragOffset).manhattanLength() >=
            QApplication::startDragDistance()) {
        const bool system = windowHandle() && windowHandle()->startSystemMove();
        m_drag = system ? SkinDrag::System : SkinDrag::Manual;
    }
    if (m_drag == SkinDrag::Manual)
        move(at - m_dragOffset);
    return m_drag != SkinDrag::None;
}

quint64 Form12::nativeHandle()
{
    return quint64(winId());
}

void Form12::loadButtonFaces()
{
    // Read now, once the start-up has put the pictures in their folder.
    m_minimizeFaces.add(PicMinimize, QStringLiteral("\\bitmap\\minimizeoff.jpg"),
                        QStringLiteral("\\bitmap\\minimizeon.jpg"));
    for (std::size_t i = 0; i < Picture.size(); ++i)
        setFace(Picture[i], QStringLiteral("\\bitmap\\scene0boton%1.jpg").arg(i + 1));
}

void Form12::letEventsRun()
{
    QCoreApplication::processEvents();
}

std::optional<core::RuntimeError> Form12::setCustomCursor(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return core::RuntimeError::fromNumber(core::errors::kFileNotFound);
    QPixmap picture;
    if (!picture.load(path, "CUR") && !picture.load(path))
        return core::RuntimeError::fromNumber(core::errors::kInvalidPicture);
    const QPoint hot = curHotSpot(path);
    setCursor(QCursor(picture, hot.x(), hot.y()));
    return std::nullopt;
}

std::optional<core::RuntimeError> Form12::addTrayIcon()
{
    AddIcon();
    return std::nullopt;
}

std::optional<core::RuntimeError> Form12::prepareSkinBox()
{
    picMainSkin->setFrameShape(QFrame::NoFrame);
    picMainSkin->setScaledContents(false);
    return std::nullopt;
}

void Form12::loadSkin(const QString& path)
{
    QPixmap skin;
    if (QFileInfo(path).isFile() && skin.load(path)) {
        picMainSkin->setPixmap(skin);
        picMainSkin->resize(skin.size());
    }
}

void Form12::fitToSkin()
{
    const QPixmap skin = picMainSkin->pixmap();
    if (!skin.isNull())
        resize(skin.size());
}

// The skin's region cuts the window; a skin without visible pixels leaves it unshaped.
void Form12::applyRegion()
{
    const QImage skin = picMainSkin->pixmap().toImage();
    const QList<QRect> rectangles =
        RegionDesdeImagen(skin.width(), skin.height(),
                          [&skin](int x, int y) { return quint32(skin.pixel(x, y)) & 0xffffffu; });
    QRegion region;
    for (const QRect& r : rectangles)
        region += r;
    if (rectangles.isEmpty())
        clearMask();
    else
        setMask(region);
}

} // namespace nubo::frame
