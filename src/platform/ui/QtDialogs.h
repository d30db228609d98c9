// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDialogs.h"

#include <QPointer>

class QWidget;

namespace nubo::platform {

// The real modal questions: Qt's message, input, file, colour and font dialogs.
class QtDialogs final : public IDialogs
{
public:
    void setParentWindow(QWidget* parent) { m_parent = parent; }

    MessageAnswer messageBox(const QString& text, const QString& title, MessageButtons buttons,
                             MessageIcon icon) override;
    std::optional<QString> inputBox(const QString& prompt, const QString& title,
                                    const QString& defaultText) override;
    QString saveFileName(const QString& title, const QString& filter,
                         const QString& startPath) override;
    QStringList openFileNames(const QString& title, const QString& filter,
                              const QString& startPath) override;
    std::optional<quint32> chooseColor(quint32 initial) override;
    std::optional<FontChoice> chooseFont(const FontChoice& initial) override;

private:
    QStringList askFileNames(const QString& title, const QString& filter, const QString& startPath,
                             int mode);
    QWidget* owner();

    QPointer<QWidget> m_parent;
    QPointer<QWidget> m_lastOwner; // the window the last dialog opened over
    QString m_lastFolder;          // where the last file dialog ended
};

} // namespace nubo::platform
