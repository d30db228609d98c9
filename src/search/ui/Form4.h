// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppFolder.h"
#include "search/ICdChooser.h"

#include <QPixmap>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QLabel;

namespace nubo::search {

class CdromDrives;

// The CD-ROM chooser: a list of the CD-ROM drives and a button that searches the chosen one.
class Form4 final : public QWidget, public ICdChooser
{
    Q_OBJECT
public:
    explicit Form4(const platform::AppFolder& app, QWidget* parent = nullptr);

    void setCdromDrives(CdromDrives* cdrom) { m_cdrom = cdrom; }

    // ICdChooser
    void clearDrives() override;
    void addDrive(const QString& text) override;
    int driveCount() const override;
    QString driveAt(int index) const override;
    QString typedDrive() const override;
    bool alwaysUseDrive() const override;
    void showWithDrive(const QString& text) override;
    void hideWindow() override { hide(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // The controls, named as the form names them; tests find them by those names.
    QLabel* Label1 = nullptr;
    QComboBox* Combo1 = nullptr;
    QCheckBox* Check1 = nullptr;
    QLabel* Label2 = nullptr;
    QLabel* Command1 = nullptr;

    void createControls();

    const platform::AppFolder& m_app;
    QPixmap m_background;
    QPixmap m_pressedFace;
    CdromDrives* m_cdrom = nullptr;
};

} // namespace nubo::search
