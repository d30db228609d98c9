// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/FontChoice.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace nubo::platform {

enum class MessageButtons { Ok, OkCancel, YesNo, YesNoCancel, RetryCancel };
enum class MessageIcon { None, Question, Exclamation, Information, Critical };
enum class MessageAnswer { Ok, Cancel, Yes, No, Retry };

// Every modal question the program asks goes through here, so tests can answer them.
class IDialogs
{
public:
    virtual ~IDialogs() = default;

    virtual MessageAnswer messageBox(const QString& text, const QString& title,
                                     MessageButtons buttons = MessageButtons::Ok,
                                     MessageIcon icon = MessageIcon::None) = 0;
    // The typed text, or nothing when the user cancels.
    virtual std::optional<QString> inputBox(const QString& prompt, const QString& title,
                                            const QString& defaultText) = 0;
    // A chosen file name, or an empty text when the user cancels.
    virtual QString saveFileName(const QString& title, const QString& filter,
                                 const QString& startPath) = 0;
    // The chosen files (one or several), or an empty list when the user cancels.
    virtual QStringList openFileNames(const QString& title, const QString& filter,
                                      const QString& startPath) = 0;
    // The colour dialog opened on initial (0xRRGGBB): the chosen colour, or nothing when the
    // user cancels.
    virtual std::optional<quint32> chooseColor(quint32 initial) = 0;
    // The font dialog with effects and colour opened on initial: the chosen font, or nothing
    // when the user cancels.
    virtual std::optional<FontChoice> chooseFont(const FontChoice& initial) = 0;
};

} // namespace nubo::platform
