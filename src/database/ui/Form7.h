// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ActivityLog.h"
#include "core/Options.h"
#include "database/SheetNumberField.h"
#include "database/SheetSettings.h"
#include "database/SheetSettingsStore.h"
#include "platform/AppFolder.h"
#include "platform/IDialogs.h"
#include "platform/ui/HoverPictures.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace nubo::database {

// The sheet configuration window: shows and edits the sheet settings record (name, colours,
// font, border line style and weight), keeping the record up to date from its controls, and
// shows the sheet-formatting option beside the options window's box for it.
class Form7 final : public QWidget
{
    Q_OBJECT
public:
    struct Deps
    {
        const platform::AppFolder& app;
        SheetSettings& settings;
        const SheetSettingsStore& store;
        platform::IDialogs& dialogs;
        core::Options& options;
        core::ActivityLog& log;
    };

    // Reads the stored settings into the record and shows them.
    explicit Form7(Deps deps, QWidget* parent = nullptr);

    // Shows the record again, after something else changed it (a loaded workbook's name).
    void refresh();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Each field's control, name, caption and tip (Form7.cpp).
    struct FieldText;
    static constexpr std::size_t kFieldCount = 6;
    static const FieldText kFields[kFieldCount];

    // The controls, named as the form names them; tests find them by those names.
    QLineEdit* TxtNameXls = nullptr;
    QLineEdit* TxtColorborder = nullptr;
    QLineEdit* TxtcolorRelleno = nullptr;
    QLineEdit* Text1 = nullptr; // the font sample
    QLineEdit* TxtBorStyle = nullptr;
    QLineEdit* TxtBorWidth = nullptr;
    QCheckBox* ChkActivate = nullptr;
    QPushButton* Command1 = nullptr; // line colour
    QPushButton* Command2 = nullptr; // fill colour
    QPushButton* Command3 = nullptr; // font
    QPushButton* Command4 = nullptr; // "&Aceptar"
    QPushButton* Command5 = nullptr; // line style up
    QPushButton* Command6 = nullptr; // line style down
    QPushButton* Command7 = nullptr; // weight down
    QPushButton* Command8 = nullptr; // weight up
    QLabel* PicAceptar = nullptr;
    std::array<QLabel*, 6> Label{}; // the captions beside the fields, in the fields' order

    void createFields();
    void createButtons();
    void connectControls();
    void setBackground();
    void chooseColor(quint32 SheetStyle::*color);
    void chooseFont();
    void numberChanged(QLineEdit* field, const SheetNumberField& rules, int SheetStyle::*number);
    void accept();

    Deps m_deps;
    bool m_refreshing = false;
    platform::HoverPictures m_hover;
};

} // namespace nubo::database
