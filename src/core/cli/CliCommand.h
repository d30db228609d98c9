// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QTextStream>

#include <functional>
#include <variant>

namespace nubo::cli {

// Exit statuses shared by every command.
enum ExitStatus : int { kOk = 0, kUsageError = 1, kFileError = 2 };

// What every command's parser gives: the arguments, or the status the command ends with at
// once, its message (if any) already written.
template <typename Arguments> using Parsed = std::variant<Arguments, ExitStatus>;

// The streams a command writes to: data alone on out (UTF-8), messages on err.
struct CliIo
{
    QTextStream& out;
    QTextStream& err;
    bool errIsTerminal = false;
};

// One subcommand of nubo-cli: its name, one line of help, and what it does.
struct CliCommand
{
    QString name;
    QString synopsis; // "tag ARCHIVO"
    QString help;     // one line, Spanish
    std::function<int(const QStringList& args, CliIo& io)> run;
};

} // namespace nubo::cli
