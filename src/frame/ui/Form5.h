// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ActivityLog.h"
#include "core/Options.h"
#include "core/OptionsStore.h"
#include "platform/AppFolder.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QLabel;
class QPushButton;

namespace nubo::frame {

// The options window: its check boxes are the live options record, bound both ways; it
// saves the record, restores the button defaults and empties the activity log.
class Form5 final : public QWidget
{
    Q_OBJECT
public:
    Form5(const platform::AppFolder& app, core::Options& options, core::OptionsStore& store,
          core::ActivityLog& log, QWidget* parent = nullptr);

    QCheckBox* box(core::Option option) const;
    // The background, read again once a first start has laid out the application folder.
    void loadPictures();

signals:
    // Chkpro changed: the list window's file-properties display is emptied.
    void ChkproClicked();
    // The window was closed (by "&ACEPTAR CAMBIOS" or otherwise).
    void closed();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // The controls, named as the form names them; tests find them by those names.
    QCheckBox* ChkDblClick = nullptr;
    QCheckBox* ChkAnim = nullptr;
    QCheckBox* ChkErrorLog = nullptr;
    QCheckBox* ChkExcConfg = nullptr;
    QCheckBox* Chkpro = nullptr;
    QCheckBox* ChkMInstances = nullptr;
    std::array<QLabel*, 6> Label{}; // the caption beside each box, in the boxes' order
    QPushButton* Command1 = nullptr;
    QPushButton* Command2 = nullptr;
    QPushButton* CmdVaciarLog = nullptr;

    void buildBoxes();
    void buildButtons();
    void bind(core::Option option, QCheckBox* check);
    void VolverAPredeterminados();

    const platform::AppFolder& m_app;
    core::Options& m_options;
    core::OptionsStore& m_store;
    core::ActivityLog& m_log;
    bool m_accepting = false;
};

} // namespace nubo::frame
