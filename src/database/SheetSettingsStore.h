// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/SheetSettings.h"
#include "platform/AppFolder.h"

namespace nubo::database {

// Keeps the sheet settings between runs in "\ini\Hoja.nbo", a file of their own beside the
// options file: section "HOJA", one KEY=value line per field.
class SheetSettingsStore final
{
public:
    explicit SheetSettingsStore(platform::AppFolder app) : m_app(std::move(app)) {}

    QString path() const;
    // The stored settings; a missing, unreadable or damaged file gives the initial ones.
    [[nodiscard]] SheetSettings load() const;
    // Replaces the file as a whole; false, with the old file kept, when that fails.
    [[nodiscard]] bool save(const SheetSettings& settings) const;

private:
    platform::AppFolder m_app;
};

} // namespace nubo::database
