// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/IStartupView.h"
#include "core/Options.h"
#include "frame/FramePlayer.h"
#include "frame/IFrameWindows.h"
#include "frame/SceneCounters.h"
#include "platform/AppFolder.h"
#include "platform/ui/HoverPictures.h"

#include <QIcon>
#include <QWidget>

#include <array>
#include <functional>

class QLabel;

namespace nubo::frame {

class Form8;
class INotifyArea;
class clsSystemTray;

// The skinned main window: the skin cut to its region, five round buttons that open and
// close the other windows or end the program, the minimize button and the tray icon.
class Form12 final : public QWidget, public core::IStartupView
{
    Q_OBJECT
public:
    struct Deps
    {
        const platform::AppFolder& app;
        const core::Options& options;
        IFrameWindows& windows;
        INotifyArea* notifyArea = nullptr; // none: the program runs without the icon
        // The tray icon's picture: the sheet configuration window's icon. None: the logo file.
        std::function<QIcon()> trayIcon = {};
    };

    explicit Form12(Deps deps, QWidget* parent = nullptr);

    void setTrayMenu(Form8* menu) { m_trayMenu = menu; }

    // The mouse-down handlers; points are in the box's own pixels.
    void pictureMouseDown(int button, QPointF point);
    void picMinimizeMouseDown(QPointF point);
    // A character typed on the skin (Ctrl+letter gives 1 .. 26).
    void skinKeyPress(int character);
    // A button's window was closed elsewhere: its face steps back to idle.
    void playClosingFrames(int button);

    // Shows the window where it was (restored from the tray or from minimized) and raises it.
    void bringToFront();

    void AddIcon();
    void SystemTray_LButtonDblClk();
    void SystemTray_LButtonUp();
    void SystemTray_RButtonUp();
    void SystemTray_LButtonDown();

    // IStartupView
    quint64 nativeHandle() override;
    void loadButtonFaces() override;
    void letEventsRun() override;
    std::optional<core::RuntimeError> setCustomCursor(const QString& path) override;
    std::optional<core::RuntimeError> addTrayIcon() override;
    std::optional<core::RuntimeError> prepareSkinBox() override;
    void loadSkin(const QString& path) override;
    void fitToSkin() override;
    void applyRegion() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // The controls, named as the form names them; tests find them by those names.
    QLabel* picMainSkin = nullptr;
    QLabel* PicMinimize = nullptr;
    std::array<QLabel*, 5> Picture{}; // Picture1 .. Picture5
    clsSystemTray* SystemTray = nullptr;

    void buildControls();
    void setFace(QLabel* box, const QString& relative);
    void runAction(int button, FaceAction action);
    void openWindow(FrameWindow window);
    void exitProgram();
    void restoreFromTray();
    bool dragWindow(QObject* watched, QEvent* event);
    bool animationsOn() const;

    Deps m_deps;
    SceneCounters m_counters;
    FramePlayer m_player;
    Form8* m_trayMenu = nullptr;
    platform::HoverPictures m_minimizeFaces;
    // A press on the skin, then the move it became: the window system's or our own.
    enum class SkinDrag { None, Pressed, System, Manual };
    QPoint m_dragOffset;
    SkinDrag m_drag = SkinDrag::None;
};

} // namespace nubo::frame
