// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/cli/CliCommand.h"

#include <QList>

namespace nubo::cli {

// Dispatches nubo-cli's arguments to its commands; prints usage for --help and mistakes.
class Cli final
{
public:
    explicit Cli(QList<CliCommand> commands) : m_commands(std::move(commands)) {}

    int run(const QStringList& arguments, CliIo& io) const;
    void printUsage(QTextStream& stream) const;

private:
    QList<CliCommand> m_commands;
};

} // namespace nubo::cli
