// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/FontChoice.h"

#include <QDialog>
#include <QFont>

class QFontDialog;
class QPushButton;

namespace nubo::platform {

// Qt's font dialog with a colour beside its effects, as the program's font choices carry one.
class FontDialog final : public QDialog
{
    Q_OBJECT
public:
    explicit FontDialog(const FontChoice& initial, QWidget* parent = nullptr);

    FontChoice choice() const;

private:
    void showColor();

    QFontDialog* m_fonts = nullptr;
    QPushButton* m_colorButton = nullptr;
    quint32 m_color = 0;
    FontChoice m_initial;
    QFont m_shown; // what the dialog first showed of m_initial
};

} // namespace nubo::platform
