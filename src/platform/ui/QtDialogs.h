#pragma once

#include "platform/IDialogs.h"

#include <QPointer>

class QWidget;

namespace nubo::platform {

// The real modal questions: Qt's message, input and file dialogs with the given texts.
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
    QString openFileName(const QString& title, const QString& filter,
                         const QString& startPath) override;

private:
    QString askFileName(const QString& title, const QString& filter, const QString& startPath,
                        int mode);

    QPointer<QWidget> m_parent;
    QString m_lastFolder; // where the last file dialog ended
};

} // namespace nubo::platform
