// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ActivityLog.h"
#include "core/Options.h"
#include "core/ProfileFile.h"
#include "platform/AppFolder.h"

namespace nubo::core {

// Reads and writes the options record in "\ini\Config.nbo", and prepares the folders that
// hold the options file and the activity log.
class OptionsStore final
{
public:
    OptionsStore(const platform::AppFolder& app, Options& options, ActivityLog& log);

    // The options file as it resolves now: the folder may appear after start-up begins.
    ProfileFile profile() const;

    void LeerOpciones();
    void GuardarOpciones();
    void OpcionesPredeterminadas();
    void PrepararCarpetas();

    static constexpr const char* kSection = "OPCIONES";

private:
    platform::AppFolder m_app;
    Options& m_options;
    ActivityLog& m_log;
};

} // namespace nubo::core
