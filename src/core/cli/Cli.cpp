#include "core/cli/Cli.h"

namespace nubo::cli {

void Cli::printUsage(QTextStream& stream) const
{
    stream << "uso: nubo-cli ORDEN [ARGUMENTOS]\n\n"
           << "Cataloga, convierte e inspecciona archivos sin abrir ventanas.\n\n"
           << "Órdenes:\n";
    for (const CliCommand& command : m_commands)
        stream << "  " << command.synopsis.leftJustified(34) << ' ' << command.help << '\n';
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
