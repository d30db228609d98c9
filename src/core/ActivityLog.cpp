// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ActivityLog.h"

#include "core/RawFile.h"

#include <QDateTime>
#include <QFile>
#include <QLocale>

namespace nubo::core {

ActivityLog::ActivityLog(const platform::AppFolder& app, std::function<bool()> enabled)
    : m_app(app), m_enabled(std::move(enabled))
{
}

QString ActivityLog::path() const
{
    return m_app.resolve(QStringLiteral("\\log\\nubo.log"));
}

namespace {

// The locale's long time form without its time-zone field, and the brackets or blanks that
// stood around it: "H:mm:ss (t)" gives "22:15:03", "h:mm:ss AP t" gives "10:15:03 PM".
QString timeFormatWithoutZone(const QLocale& locale)
{
    const QString format = locale.timeFormat(QLocale::LongFormat);
    QString kept;
    bool quoted = false;
    for (const QChar c : format) {
        if (c == QLatin1Char('\''))
            quoted = !quoted;
        if (quoted || c != QLatin1Char('t'))
            kept += c;
    }
    kept.remove(QStringLiteral("()")).remove(QStringLiteral("[]"));
    return kept.simplified();
}

} // namespace

QString ActivityLog::formatLine(const QString& texto, const QDateTime& when, const QLocale& locale)
{
    const QString time = locale.toString(when.time(), timeFormatWithoutZone(locale));
    const QString date = locale.toString(when.date(), QLocale::ShortFormat);
    return texto + QLatin1Char(' ') + time + QLatin1Char(' ') + date + QStringLiteral("\r\n");
}

namespace {

QString trimSpaces(const QString& text)
{
    qsizetype start = 0, end = text.size();
    while (start < end && text[start] == QLatin1Char(' '))
        ++start;
    while (end > start && text[end - 1] == QLatin1Char(' '))
        --end;
    return text.mid(start, end - start);
}

} // namespace

void ActivityLog::AnotarEnLog(const QString& texto)
{
    if (!m_enabled || !m_enabled())
        return;
    // The whole file is read and rewritten; only blanks are trimmed, never line ends.
    const QString ruta = path();
    const QString previo = LeerArchivo(ruta);
    const QString nuevo =
        trimSpaces(previo) + formatLine(texto, QDateTime::currentDateTime(), QLocale::system());
    // The log never fails to its caller: a line that cannot be written is lost.
    (void)EscribirArchivo(ruta, nuevo, false);
}

void ActivityLog::VaciarLog()
{
    QFile file(path());
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        file.close();
}

} // namespace nubo::core
