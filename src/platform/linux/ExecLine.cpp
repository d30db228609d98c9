// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/ExecLine.h"

#include <QFileInfo>
#include <QUrl>

namespace nubo::platform::exec {

namespace {

bool isQuotedEscape(QChar c)
{
    return c == QLatin1Char('"') || c == QLatin1Char('`') || c == QLatin1Char('$') ||
           c == QLatin1Char('\\');
}

// Replaces the field codes inside one argument; a lone %F or %U may stand for nothing else.
QString expandCodes(const QString& argument, const DesktopEntry& entry, const QString& path,
                    bool& usedFile)
{
    QString result;
    for (qsizetype i = 0; i < argument.size(); ++i) {
        if (argument.at(i) != QLatin1Char('%') || i + 1 == argument.size()) {
            result += argument.at(i);
            continue;
        }
        switch (argument.at(++i).unicode()) {
        case 'f':
        case 'F':
            result += path;
            usedFile = true;
            break;
        case 'u':
        case 'U':
            result += QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
            usedFile = true;
            break;
        case 'c':
            result += entry.name;
            break;
        case 'k':
            result += entry.path;
            break;
        case '%':
            result += QLatin1Char('%');
            break;
        default: // %d %D %n %N %v %m and unknown codes are dropped
            break;
        }
    }
    return result;
}

struct PlayerQueueOption
{
    const char* program;
    QStringList options;
};

} // namespace

std::optional<QStringList> split(const QString& exec)
{
    QStringList arguments;
    QString current;
    bool inArgument = false;
    bool quoted = false;
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar c = exec.at(i);
        if (quoted) {
            if (c == QLatin1Char('\\') && i + 1 < exec.size() && isQuotedEscape(exec.at(i + 1)))
                current += exec.at(++i);
            else if (c == QLatin1Char('"'))
                quoted = false;
            else
                current += c;
        } else if (c == QLatin1Char(' ') || c == QLatin1Char('\t')) {
            if (inArgument)
                arguments.append(current);
            current.clear();
            inArgument = false;
        } else {
            inArgument = true;
            if (c == QLatin1Char('"'))
                quoted = true;
            else
                current += c;
        }
    }
    if (quoted)
        return std::nullopt;
    if (inArgument)
        arguments.append(current);
    return arguments;
}

QStringList expand(const DesktopEntry& entry, const QString& path)
{
    const QStringList arguments = split(entry.exec).value_or(QStringList());
    QStringList result;
    bool usedFile = false;
    for (const QString& argument : arguments) {
        if (argument == QLatin1String("%i")) {
            if (!entry.icon.isEmpty())
                result << QStringLiteral("--icon") << entry.icon;
            continue;
        }
        const QString expanded = expandCodes(argument, entry, path, usedFile);
        // A code standing alone that expands to nothing is no argument at all.
        if (!expanded.isEmpty() || !argument.startsWith(QLatin1Char('%')))
            result.append(expanded);
    }
    if (!usedFile && !result.isEmpty())
        result.append(path);
    return result;
}

std::optional<QStringList> enqueueCommand(const QStringList& execArguments, const QString& path)
{
    static const QList<PlayerQueueOption> players = {
        {"vlc", {QStringLiteral("--one-instance"), QStringLiteral("--playlist-enqueue")}},
        {"audacious", {QStringLiteral("-e")}},
        {"strawberry", {QStringLiteral("-a")}},
        {"clementine", {QStringLiteral("-a")}},
        {"qmmp", {QStringLiteral("-e")}},
        {"deadbeef", {QStringLiteral("--queue")}},
        {"smplayer", {QStringLiteral("-add-to-playlist")}},
    };
    if (execArguments.isEmpty())
        return std::nullopt;
    const QString program = QFileInfo(execArguments.first()).fileName();
    for (const PlayerQueueOption& player : players) {
        if (program == QLatin1String(player.program))
            return QStringList{execArguments.first()} + player.options + QStringList{path};
    }
    return std::nullopt;
}

} // namespace nubo::platform::exec
