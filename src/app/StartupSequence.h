#pragma once

#include "app/ActivityLog.h"
#include "app/IStartupView.h"
#include "app/Options.h"
#include "app/OptionsStore.h"
#include "platform/AppFolder.h"
#include "platform/IDialogs.h"
#include "platform/PlatformServices.h"

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
        Options& options;
        OptionsStore& store;
        ActivityLog& log;
        platform::PlatformServices& platform;
        platform::IDialogs& dialogs;
        QString executablePath;
    };

    explicit StartupSequence(Deps deps) : m_deps(std::move(deps)) {}

    Outcome run(IStartupView& view);

    bool EsUnidadCDROM(const QString& drive) const;

    static QString cdromRefusalText(const QString& drive);
    static QString missingFilesText(const RuntimeError& error);

private:
    // The folder the program was started from, whose drive the CD-ROM refusal tests.
    QString startFolder() const;
    // The cursor, tray icon and skin box steps: an error ends the handler after a report.
    bool runGuardedSteps(IStartupView& view);
    void reportError(const RuntimeError& error);

    Deps m_deps;
};

} // namespace nubo::app
