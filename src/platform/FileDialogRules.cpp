// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileDialogRules.h"

#include <QStringList>

namespace nubo::platform {

namespace {

// "*.xls" becomes "*.[xX][lL][sS]"; characters without case stay as they are.
QString caseBlind(const QString& pattern)
{
    QString out;
    for (const QChar c : pattern) {
        if (c.toLower() == c.toUpper())
            out += c;
        else
            out += QLatin1Char('[') + c.toLower() + c.toUpper() + QLatin1Char(']');
    }
    return out;
}

} // namespace

QString qtNameFilters(const QString& windowsFilter)
{
    const QStringList parts = windowsFilter.split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns;
        for (const QString& p : parts[i + 1].split(QLatin1Char(';'), Qt::SkipEmptyParts))
            patterns.append(caseBlind(p.trimmed()));
        filters.append(parts[i] + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) +
                       QLatin1Char(')'));
    }
    return filters.join(QStringLiteral(";;"));
}

QString dialogStartPath(const QString& requested, const QString& lastFolder, const QString& home)
{
    const QString drive = requested.trimmed().toLower();
    if (drive.isEmpty() || drive == QLatin1String("c:") || drive == QLatin1String("c:\\"))
        return lastFolder.isEmpty() ? home : lastFolder;
    return requested;
}

} // namespace nubo::platform
