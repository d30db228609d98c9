// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IShell.h"

#include <QList>
#include <QPair>

#include <functional>

namespace nubo::platform {

// Records every shell call; answers with the result a test sets.
class FakeShell final : public IShell
{
public:
    QList<QPair<QString, QString>> calls; // verb ("open", "enqueue", "openWith"), path
    Result openResult = Result::Ok;
    Result enqueueResult = Result::Ok;
    bool openWithResult = true;
    // Runs while the chooser would be open (a modal dialog lets events run meanwhile).
    std::function<void()> whileChoosing;

    Result open(const QString& path) override
    {
        calls.append({QStringLiteral("open"), path});
        return openResult;
    }
    Result enqueue(const QString& path) override
    {
        calls.append({QStringLiteral("enqueue"), path});
        return enqueueResult;
    }
    bool openWith(const QString& path) override
    {
        calls.append({QStringLiteral("openWith"), path});
        if (whileChoosing)
            whileChoosing();
        return openWithResult;
    }
};

} // namespace nubo::platform
