// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDialogs.h"

#include <QList>
#include <QQueue>
#include <QStringList>

namespace nubo::platform {

// Answers modal questions from queues a test fills, and records every question asked.
class FakeDialogs final : public IDialogs
{
public:
    struct Asked
    {
        QString kind; // "message", "input", "save", "open", "color", "font"
        QString text;
        QString title;
        MessageButtons buttons = MessageButtons::Ok;
        MessageIcon icon = MessageIcon::None;
        QString defaultText = {}; // the text an input box offered
    };

    QList<Asked> asked;
    QQueue<MessageAnswer> messageAnswers;        // empty: the first button (Ok or Yes)
    QQueue<std::optional<QString>> inputAnswers; // empty: the default text
    QQueue<QString> fileAnswers;                 // empty: cancelled
    QStringList fileStartPaths;                  // where each file dialog was to open
    QQueue<quint32> colorAnswers;                // empty: cancelled
    QQueue<FontChoice> fontAnswers;              // empty: cancelled

    MessageAnswer messageBox(const QString& text, const QString& title, MessageButtons buttons,
                             MessageIcon icon) override
    {
        asked.append({QStringLiteral("message"), text, title, buttons, icon});
        if (!messageAnswers.isEmpty())
            return messageAnswers.dequeue();
        const bool yesFirst =
            buttons == MessageButtons::YesNo || buttons == MessageButtons::YesNoCancel;
        return yesFirst ? MessageAnswer::Yes : MessageAnswer::Ok;
    }
    std::optional<QString> inputBox(const QString& prompt, const QString& title,
                                    const QString& defaultText) override
    {
        asked.append({QStringLiteral("input"), prompt, title, MessageButtons::Ok, MessageIcon::None,
                      defaultText});
        return inputAnswers.isEmpty() ? std::optional<QString>(defaultText)
                                      : inputAnswers.dequeue();
    }
    QString saveFileName(const QString& title, const QString& filter,
                         const QString& startPath) override
    {
        asked.append({QStringLiteral("save"), filter, title});
        fileStartPaths.append(startPath);
        return fileAnswers.isEmpty() ? QString() : fileAnswers.dequeue();
    }
    // Several files chosen at once are one answer, their names separated by line breaks.
    QStringList openFileNames(const QString& title, const QString& filter,
                              const QString& startPath) override
    {
        asked.append({QStringLiteral("open"), filter, title});
        fileStartPaths.append(startPath);
        return fileAnswers.isEmpty() ? QStringList()
                                     : fileAnswers.dequeue().split(u'\n', Qt::SkipEmptyParts);
    }
    std::optional<quint32> chooseColor(quint32 initial) override
    {
        asked.append({QStringLiteral("color"), QString::number(initial, 16), {}});
        return colorAnswers.isEmpty() ? std::nullopt : std::optional(colorAnswers.dequeue());
    }
    std::optional<FontChoice> chooseFont(const FontChoice& initial) override
    {
        asked.append({QStringLiteral("font"), initial.name, {}});
        return fontAnswers.isEmpty() ? std::nullopt : std::optional(fontAnswers.dequeue());
    }
};

} // namespace nubo::platform
