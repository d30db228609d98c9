// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/FontDialog.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace nubo::platform {

FontDialog::FontDialog(const FontChoice& initial, QWidget* parent)
    : QDialog(parent), m_color(initial.color & 0xFFFFFF)
{
    QFont font(initial.name);
    font.setPointSizeF(initial.pointSize);
    font.setBold(initial.bold);
    font.setItalic(initial.italic);
    font.setUnderline(initial.underline);
    // Qt's own dialog, embedded as a plain widget so the colour row and buttons sit below it.
    m_fonts = new QFontDialog(font, this);
    m_fonts->setOptions(QFontDialog::NoButtons | QFontDialog::DontUseNativeDialog);
    m_fonts->setWindowFlags(Qt::Widget);
    setWindowTitle(m_fonts->windowTitle());
    m_initial = initial;
    m_shown = m_fonts->currentFont();

    auto* colorLabel = new QLabel(QStringLiteral("&Color:"), this);
    m_colorButton = new QPushButton(this);
    m_colorButton->setObjectName(QStringLiteral("color"));
    m_colorButton->setFixedSize(64, 24);
    colorLabel->setBuddy(m_colorButton);
    connect(m_colorButton, &QPushButton::clicked, this, [this] {
        const QColor chosen = QColorDialog::getColor(QColor::fromRgb(m_color), this);
        if (chosen.isValid()) {
            m_color = chosen.rgb() & 0xFFFFFF;
            showColor();
        }
    });
    showColor();

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* colorRow = new QHBoxLayout;
    colorRow->addWidget(colorLabel);
    colorRow->addWidget(m_colorButton);
    colorRow->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_fonts);
    layout->addLayout(colorRow);
    layout->addWidget(buttons);
}

void FontDialog::showColor()
{
    m_colorButton->setStyleSheet(
        QStringLiteral("background-color: %1;").arg(QColor::fromRgb(m_color).name()));
}

FontChoice FontDialog::choice() const
{
    const QFont font = m_fonts->currentFont();
    FontChoice chosen{font.family(), font.pointSizeF(), font.bold(),
                      font.italic(), font.underline(),  m_color};
    // A face this machine lacks shows as a substitute, perhaps without the style asked for:
    // while the user leaves them as shown, the face and style asked for stay.
    if (font.family() == m_shown.family()) {
        chosen.name = m_initial.name;
        if (font.bold() == m_shown.bold() && font.italic() == m_shown.italic()) {
            chosen.bold = m_initial.bold;
            chosen.italic = m_initial.italic;
        }
    }
    return chosen;
}

} // namespace nubo::platform
