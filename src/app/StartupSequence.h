// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ActivityLog.h"
#include "core/IStartupView.h"
#include "core/Options.h"
#include "core/OptionsStore.h"
#include "platform/AppFolder.h"
#include "platform/IDialogs.h"
#include "platform/PlatformServices.h"

#include <functional>

namespace nubo::app {

// The main window's load handler: reads the options, refuses a second instance or a start
// from CD-ROM, publishes the instance, lays out the resource folders and loads the skin.
class StartupSequence final
{
public:
    enum class Outcome { Running, EndProgram };

    struct Deps
    {
        const platform::AppFolder& app;
        core::Options& options;
        core::OptionsStore& store;
        core::ActivityLog& log;
        platform::PlatformServices& platform;
        platform::IDialogs& dialogs;
        QString executablePath;
        // Makes the application folder ready; runs only once the start-up checks let the
        // program run, so a start they end changes no file.
        std::function<void()> prepareAppFolder = {};
    };

    explicit StartupSequence(Deps deps) : m_deps(std::move(deps)) {}

    Outcome run(core::IStartupView& view);

    bool EsUnidadCDROM(const QString& drive) const;

    static QString cdromRefusalText(const QString& drive);
    static QString missingFilesText(const core::RuntimeError& error);

private:
    // The folder the program was started from, whose drive the CD-ROM refusal tests.
    QString startFolder() const;
    // The cursor, tray icon and skin box steps: an error ends the handler after a report.
    [[nodiscard]] bool runGuardedSteps(core::IStartupView& view);
    void reportError(const core::RuntimeError& error);

    Deps m_deps;
};

} // namespace nubo::app
