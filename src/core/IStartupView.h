// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/RuntimeError.h"

#include <optional>

namespace nubo::core {

// What start-up asks of the main window. Steps that may fail return the run-time error
// they met; the others ignore their own failures.
class IStartupView
{
public:
    virtual ~IStartupView() = default;

    virtual quint64 nativeHandle() = 0;
    virtual void loadButtonFaces() = 0;
    virtual void letEventsRun() = 0;
    virtual std::optional<RuntimeError> setCustomCursor(const QString& path) = 0;
    virtual std::optional<RuntimeError> addTrayIcon() = 0;
    virtual std::optional<RuntimeError> prepareSkinBox() = 0;
    virtual void loadSkin(const QString& path) = 0;
    virtual void fitToSkin() = 0;
    virtual void applyRegion() = 0;
};

} // namespace nubo::core
