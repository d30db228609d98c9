#include "tags/cli/TagCommands.h"

#include "tags/TagReader.h"

#include <QFileInfo>

namespace nubo::tags::cli {

namespace {

using nubo::cli::CliIo;

// The one file argument of a command, or the status to end with.
int checkFileArgument(const QString& name, const QStringList& args, CliIo& io)
{
    if (args.size() != 1) {
        io.err << "uso: nubo-cli " << name << " ARCHIVO\n";
        return nubo::cli::kUsageError;
    }
    if (!QFileInfo::exists(args.first())) {
        io.err << "nubo-cli: no existe el archivo: " << args.first() << '\n';
        return nubo::cli::kFileError;
    }
    return nubo::cli::kOk;
}

// The text a new list window's details box holds once this file is selected: it starts empty,
// and nothing is printed when the box stays hidden. Line ends are the box's CR LF. Zero bytes
// of the tag's padding print as nothing, as the box draws them, or as "\0" with --raw.
int runTag(QStringList args, CliIo& io)
{
    const bool raw = args.removeAll(QStringLiteral("--raw")) > 0;
    if (const int status = checkFileArgument(QStringLiteral("tag"), args, io))
        return status;
    const TagTextResult result = ShowTagText(args.first(), QString());
    if (result.isMpegAudio)
        io.out << QString(result.text).replace(QChar(0), raw ? QStringLiteral("\\0") : QString());
    return nubo::cli::kOk;
}

int runType(const QStringList& args, CliIo& io)
{
    if (const int status = checkFileArgument(QStringLiteral("type"), args, io))
        return status;
    io.out << FileTypeName(args.first()) << '\n';
    return nubo::cli::kOk;
}

} // namespace

QList<nubo::cli::CliCommand> tagCommands()
{
    return {
        {QStringLiteral("tag"), QStringLiteral("tag [--raw] ARCHIVO"),
         QStringLiteral("Muestra la etiqueta ID3v1 del archivo como la lista la muestra; los "
                        "bytes cero no se muestran (con --raw se escriben como \\0)"),
         runTag},
        {QStringLiteral("type"), QStringLiteral("type ARCHIVO"),
         QStringLiteral("Muestra el nombre del tipo del archivo"), runType},
    };
}

} // namespace nubo::tags::cli
