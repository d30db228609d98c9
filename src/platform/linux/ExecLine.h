// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/DesktopEntry.h"

#include <QStringList>

#include <optional>

// The Exec line of a .desktop file turned into an argument list, and the players' own
// options for adding a file to their play queue.
namespace nubo::platform::exec {

// Splits an Exec value (string escapes already resolved) into arguments: blanks separate,
// "..." quotes, and inside quotes \" \` \$ \\ stand for the character. Field codes stay as
// they are. Nothing when a quote is left open.
[[nodiscard]] std::optional<QStringList> split(const QString& exec);

// The program and arguments that open one file with the entry: %f %F give the path, %u %U its
// file URL, %i the icon option, %c the name, %k the .desktop file, %% a percent sign; other
// codes are dropped. The path is appended when the line has no file code.
QStringList expand(const DesktopEntry& entry, const QString& path);

// The command that adds path to the play queue of the player whose Exec arguments are given,
// by that player's own option; nothing for a program without one (it gets "open").
std::optional<QStringList> enqueueCommand(const QStringList& execArguments, const QString& path);

} // namespace nubo::platform::exec
