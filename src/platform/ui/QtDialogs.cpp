// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/QtDialogs.h"

#include "platform/FileDialogRules.h"

#include "platform/ui/FontDialog.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>

#include <algorithm>

namespace nubo::platform {

namespace {

// Room a window frame takes beside its title: icon and the three title bar buttons.
constexpr int kTitleFrameExtra = 160;

QMessageBox::StandardButtons standardButtons(MessageButtons buttons)
{
    switch (buttons) {
    case MessageButtons::Ok:
        return QMessageBox::Ok;
    case MessageButtons::OkCancel:
        return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    case MessageButtons::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon standardIcon(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::None:
        return QMessageBox::NoIcon;
    case MessageIcon::Question:
        return QMessageBox::Question;
    case MessageIcon::Exclamation:
        return QMessageBox::Warning;
    case MessageIcon::Information:
        return QMessageBox::Information;
    case MessageIcon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

} // namespace

MessageAnswer QtDialogs::messageBox(const QString& text, const QString& title,
                                    MessageButtons buttons, MessageIcon icon)
{
    QMessageBox box(standardIcon(icon), title, text, standardButtons(buttons), owner());
    switch (box.exec()) {
    case QMessageBox::Yes:
        return MessageAnswer::Yes;
    case QMessageBox::No:
        return MessageAnswer::No;
    case QMessageBox::Cancel:
        return MessageAnswer::Cancel;
    case QMessageBox::Retry:
        return MessageAnswer::Retry;
    default:
        // Closing a box that has a Cancel button answers Cancel; otherwise Ok.
        return buttons == MessageButtons::Ok ? MessageAnswer::Ok : MessageAnswer::Cancel;
    }
}

std::optional<QString> QtDialogs::inputBox(const QString& prompt, const QString& title,
                                           const QString& defaultText)
{
    QInputDialog dialog(owner());
    dialog.setWindowTitle(title);
    dialog.setLabelText(prompt);
    dialog.setTextValue(defaultText);
    // The title may be the only place a question tells its range: the box is made wide enough
    // for the window frame to show all of it beside its buttons.
    const int titleWidth = dialog.fontMetrics().horizontalAdvance(title) + kTitleFrameExtra;
    dialog.resize(std::max(dialog.sizeHint().width(), titleWidth), dialog.sizeHint().height());
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.textValue();
}

QString QtDialogs::saveFileName(const QString& title, const QString& filter,
                                const QString& startPath)
{
    return askFileNames(title, filter, startPath, QFileDialog::AcceptSave).value(0);
}

QStringList QtDialogs::openFileNames(const QString& title, const QString& filter,
                                     const QString& startPath)
{
    return askFileNames(title, filter, startPath, QFileDialog::AcceptOpen);
}

// The filter's patterns stay out of sight, as the descriptions already name them.
QStringList QtDialogs::askFileNames(const QString& title, const QString& filter,
                                    const QString& startPath, int mode)
{
    QFileDialog dialog(owner(), title, dialogStartPath(startPath, m_lastFolder, QDir::homePath()),
                       qtNameFilters(filter));
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setAcceptMode(static_cast<QFileDialog::AcceptMode>(mode));
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFiles
                                                       : QFileDialog::AnyFile);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const QStringList chosen = dialog.selectedFiles();
    m_lastFolder = QFileInfo(chosen.constFirst()).absolutePath();
    return chosen;
}

// Every dialog opens over the window that asks for it, so closing it leaves that window in
// front and with the keyboard. Right after a dialog closes no window may be active yet: a
// second question then opens over the window the first one did; the parent window only when
// none of ours has asked.
QWidget* QtDialogs::owner()
{
    if (QWidget* active = QApplication::activeWindow())
        m_lastOwner = active;
    else if (!m_lastOwner || !m_lastOwner->isVisible())
        m_lastOwner = m_parent;
    // A window not on screen yet (start-up's messages) would put the dialog in its corner.
    return m_lastOwner && m_lastOwner->isVisible() ? m_lastOwner.data() : nullptr;
}

std::optional<quint32> QtDialogs::chooseColor(quint32 initial)
{
    const QColor chosen = QColorDialog::getColor(QColor::fromRgb(initial & 0xFFFFFF), owner());
    if (!chosen.isValid())
        return std::nullopt;
    return chosen.rgb() & 0xFFFFFF;
}

std::optional<FontChoice> QtDialogs::chooseFont(const FontChoice& initial)
{
    FontDialog dialog(initial, owner());
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.choice();
}

} // namespace nubo::platform
