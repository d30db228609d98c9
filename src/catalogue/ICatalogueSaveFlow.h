// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace nubo::catalogue {

// The save steps that emptying the list offers; the catalogue database flow implements them.
// A save is true only when every row reached the file: the list is emptied only then.
class ICatalogueSaveFlow
{
public:
    virtual ~ICatalogueSaveFlow() = default;

    // Saves the list into the current catalogue file; reports its own failures.
    [[nodiscard]] virtual bool saveToCurrentFile(const QString& currentFile) = 0;
    // The "Guardar como" save dialog: the chosen file, or an empty text (and no message) when
    // none is given.
    virtual QString askSaveAsName() = 0;
    // Saves the list into a file the user has just chosen; reports its own failures.
    [[nodiscard]] virtual bool saveToPath(const QString& path) = 0;
};

} // namespace nubo::catalogue
