#pragma once

#include "app/IStartupView.h"
#include "platform/AppFolder.h"

#include <QWidget>

#include <array>

class QLabel;

namespace nubo::frame {

// The skinned main window: the skin, five round buttons and the minimize button.
class Form12 final : public QWidget, public app::IStartupView
{
    Q_OBJECT
public:
    explicit Form12(const platform::AppFolder& app, QWidget* parent = nullptr);

    QLabel* picMainSkin = nullptr;
    QLabel* PicMinimize = nullptr;
    QLabel* pikForSYSTRAY = nullptr;
    std::array<QLabel*, 5> Picture{}; // Picture1 .. Picture5

    // IStartupView
    quint64 nativeHandle() override;
    void loadButtonFaces() override;
    void letEventsRun() override;
    std::optional<app::RuntimeError> setCustomCursor(const QString& path) override;
    std::optional<app::RuntimeError> addTrayIcon() override;
    std::optional<app::RuntimeError> prepareSkinBox() override;
    void loadSkin(const QString& path) override;
    void fitToSkin() override;
    void applyRegion() override;

private:
    const platform::AppFolder& m_app;
};

} // namespace nubo::frame
