// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/cli/TagCommands.h"

#include "tags/FileProperties.h"
#include "tags/TagReader.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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

// The "KEY<TAB>value" lines of --all: one per value, tag keys as the tag library names them.
void printLines(const FileProperties& p, CliIo& io)
{
    const auto line = [&io](const QString& key, const QString& value) {
        io.out << key << '\t' << QString(value).replace(QLatin1Char('\n'), QLatin1String("\\n"))
               << '\n';
    };
    line(QStringLiteral("ARCHIVO"), p.path);
    line(QStringLiteral("TAMAÑO"), QString::number(p.size));
    line(QStringLiteral("TIPO"), p.typeName);
    for (const TagField& field : p.fields) {
        for (const QString& value : field.values)
            line(field.key, value);
    }
    if (!p.readable)
        return;
    line(QStringLiteral("DURACION"), formatLength(p.lengthSeconds));
    line(QStringLiteral("BITRATE"), QString::number(p.bitrate));
    line(QStringLiteral("SAMPLERATE"), QString::number(p.sampleRate));
    line(QStringLiteral("CHANNELS"), QString::number(p.channels));
    if (!p.picture.isEmpty())
        line(QStringLiteral("PICTURE"),
             QStringLiteral("%1 %2 bytes").arg(p.pictureMimeType).arg(p.picture.size()));
}

QJsonObject jsonOf(const FileProperties& p)
{
    QJsonObject tags;
    for (const TagField& field : p.fields)
        tags.insert(field.key, QJsonArray::fromStringList(field.values));
    QJsonObject out{{QStringLiteral("ARCHIVO"), p.path},
                    {QStringLiteral("TAMAÑO"), p.size},
                    {QStringLiteral("TIPO"), p.typeName}};
    if (!p.readable) {
        out.insert(QStringLiteral("ERROR"), unreadableText());
        return out;
    }
    out.insert(QStringLiteral("TAGS"), tags);
    out.insert(QStringLiteral("DURACION"), formatLength(p.lengthSeconds));
    out.insert(QStringLiteral("LENGTH"), p.lengthSeconds);
    out.insert(QStringLiteral("BITRATE"), p.bitrate);
    out.insert(QStringLiteral("SAMPLERATE"), p.sampleRate);
    out.insert(QStringLiteral("CHANNELS"), p.channels);
    if (!p.picture.isEmpty())
        out.insert(QStringLiteral("PICTURE"),
                   QJsonObject{{QStringLiteral("MIMETYPE"), p.pictureMimeType},
                               {QStringLiteral("BYTES"), p.picture.size()}});
    return out;
}

// --all and --json: every field the tag library finds; an unreadable file says so on stderr.
int runProperties(const QString& path, bool json, CliIo& io)
{
    const FileProperties properties = readFileProperties(path);
    if (json)
        io.out << QJsonDocument(jsonOf(properties)).toJson(QJsonDocument::Indented);
    else
        printLines(properties, io);
    if (!properties.readable)
        io.err << "nubo-cli: " << unreadableText() << '\n';
    return nubo::cli::kOk;
}

// The text a new list window's details box holds once this file is selected: it starts empty,
// and nothing is printed when the box stays hidden. Line ends are the box's CR LF. Zero bytes
// of the tag's padding print as nothing, as the box draws them, or as "\0" with --raw.
int runTag(QStringList args, CliIo& io)
{
    const bool raw = args.removeAll(QStringLiteral("--raw")) > 0;
    const bool all = args.removeAll(QStringLiteral("--all")) > 0;
    const bool json = args.removeAll(QStringLiteral("--json")) > 0;
    if (const int status = checkFileArgument(QStringLiteral("tag"), args, io))
        return status;
    if (all || json)
        return runProperties(args.first(), json, io);
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
        {QStringLiteral("tag"), QStringLiteral("tag [--raw | --all | --json] ARCHIVO"),
         QStringLiteral("Muestra la etiqueta ID3v1 del archivo como la lista la muestra; los "
                        "bytes cero no se muestran (con --raw se escriben como \\0); con --all "
                        "todas las etiquetas y propiedades (CLAVE<TAB>valor), con --json en JSON"),
         runTag},
        {QStringLiteral("type"), QStringLiteral("type ARCHIVO"),
         QStringLiteral("Muestra el nombre del tipo del archivo"), runType},
    };
}

} // namespace nubo::tags::cli
