// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDialogs.h"

namespace nubo::search::cli {

// The command line asks nothing: every question is answered as if cancelled.
class SilentDialogs final : public platform::IDialogs
{
public:
    platform::MessageAnswer messageBox(const QString&, const QString&, platform::MessageButtons,
                                       platform::MessageIcon) override
    {
        return platform::MessageAnswer::Cancel;
    }
    std::optional<QString> inputBox(const QString&, const QString&, const QString&) override
    {
        return std::nullopt;
    }
    QString saveFileName(const QString&, const QString&, const QString&) override { return {}; }
    QStringList openFileNames(const QString&, const QString&, const QString&) override
    {
        return {};
    }
    std::optional<quint32> chooseColor(quint32) override { return std::nullopt; }
    std::optional<platform::FontChoice> chooseFont(const platform::FontChoice&) override
    {
        return std::nullopt;
    }
};

} // namespace nubo::search::cli
