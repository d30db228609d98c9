// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/cli/Cli.h"

namespace nubo::cli {

namespace {

// Writes text as lines of at most width characters, each begun by indent.
void writeWrapped(QTextStream& stream, const QString& text, int indent, int width)
{
    const QString margin(indent, QLatin1Char(' '));
    QString line;
    for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (!line.isEmpty() && indent + line.size() + 1 + word.size() > width) {
            stream << margin << line << '\n';
            line.clear();
        }
        line += (line.isEmpty() ? QString() : QStringLiteral(" ")) + word;
    }
    if (!line.isEmpty())
        stream << margin << line << '\n';
}

} // namespace

void Cli::printUsage(QTextStream& stream) const
{
    stream << "uso: nubo-cli ORDEN [ARGUMENTOS]\n\n"
           << "Cataloga, convierte e inspecciona archivos sin abrir ventanas.\n\n"
           << "Órdenes:\n";
    for (const CliCommand& command : m_commands) {
        stream << "  " << command.synopsis << '\n';
        writeWrapped(stream, command.help, 6, 79);
    }
    stream << "\nEstado de salida: 0 correcto, 1 error de uso, 2 error de archivo.\n";
}

int Cli::run(const QStringList& arguments, CliIo& io) const
{
    if (arguments.isEmpty()) {
        printUsage(io.err);
        return kUsageError;
    }
    const QString& name = arguments.first();
    if (name == QLatin1String("--help") || name == QLatin1String("-h") ||
        name == QLatin1String("help")) {
        printUsage(io.out);
        return kOk;
    }
    for (const CliCommand& command : m_commands) {
        if (command.name == name)
            return command.run(arguments.mid(1), io);
    }
    io.err << "nubo-cli: orden desconocida: " << name << '\n';
    printUsage(io.err);
    return kUsageError;
}

} // namespace nubo::cli
