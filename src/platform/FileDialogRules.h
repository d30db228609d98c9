// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// How the file dialogs take the Windows forms their callers give them.
namespace nubo::platform {

// A Windows filter ("description|*.a;*.b|...") as Qt name filters ("description (*.a *.b);;..."),
// each pattern matching its extension in any case (*.xls also takes LISTA.XLS).
QString qtNameFilters(const QString& windowsFilter);

// The folder a file dialog opens in: no folder, or the Windows drive roots "c:" and "c:\", mean
// the last folder a dialog used, or the home folder before any; other paths stand as they are.
QString dialogStartPath(const QString& requested, const QString& lastFolder, const QString& home);

} // namespace nubo::platform
