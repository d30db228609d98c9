// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppFolder.h"
#include "platform/ui/HoverPictures.h"
#include "search/DriveList.h"
#include "search/ISearchWindow.h"
#include "search/SearchWindowController.h"

#include <QPixmap>
#include <QWidget>

class QComboBox;
class QFileSystemModel;
class QLabel;
class QPushButton;
class QTreeView;

namespace nubo::search {

// The search window "Direccion de Busqueda": drive, folder and mask of a search, and the
// buttons that start it. Its commands are the controller's.
class Form3 final : public QWidget, public ISearchWindow
{
    Q_OBJECT
public:
    Form3(const platform::AppFolder& app, const platform::IDrives& drives,
          QWidget* parent = nullptr);

    void setController(SearchWindowController* controller) { m_controller = controller; }

    // ISearchWindow
    QStringList driveTexts() const override { return m_drives.texts(); }
    QString currentDriveText() const override;
    int selectDrive(const QString& text) override;
    QString folderPath() const override { return m_folder; }
    void setFolderPath(const QString& path) override;
    QString maskText() const override;
    void setMaskText(const QString& mask) override;
    void showWindow() override;
    void hideWindow() override { hide(); }

signals:
    void closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // Each image button's pictures and command (Form3.cpp).
    struct ImageButtonRole;
    static constexpr std::size_t kRoleCount = 3;
    static const ImageButtonRole kRoles[kRoleCount];

    // The controls, named as the form names them; tests find them by those names.
    QLabel* PicLista = nullptr;
    QLabel* PicSearchCDROM = nullptr;
    QLabel* PicSearch = nullptr;
    QComboBox* Combo1 = nullptr;
    QPushButton* Command4 = nullptr;
    QPushButton* Command2 = nullptr;
    QPushButton* Command1 = nullptr;
    QComboBox* Drive1 = nullptr;
    QTreeView* Dir1 = nullptr;
    QLabel* Label1 = nullptr;

    void revealFolder();
    void createControls();
    void placeControls();
    void connectControls();
    void loadPictures();
    void refreshDrives();
    void driveChanged(int index);
    bool imageButtonEvent(QObject* watched, QEvent* event);
    void runCommand(SearchWindowController::Command command);

    const platform::AppFolder& m_app;
    DriveList m_drives;
    QFileSystemModel* m_folders = nullptr;
    QString m_folder;
    QPixmap m_background;
    platform::HoverPictures m_hover;
    SearchWindowController* m_controller = nullptr;
};

} // namespace nubo::search
