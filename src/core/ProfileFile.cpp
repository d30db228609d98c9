// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProfileFile.h"

#include <QFile>
#include <QList>
#include <QSaveFile>

namespace nubo::core {

namespace {

QList<QByteArray> readLines(const QString& path, bool* ok = nullptr)
{
    QFile file(path);
    const bool opened = file.open(QIODevice::ReadOnly);
    if (ok)
        *ok = opened;
    if (!opened)
        return {};
    QList<QByteArray> lines = file.readAll().split('\n');
    for (QByteArray& line : lines) {
        if (line.endsWith('\r'))
            line.chop(1);
    }
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    return lines;
}

// The section name of a "[NAME]" line, or a null text for any other line.
QString sectionOf(const QByteArray& line)
{
    const QByteArray t = line.trimmed();
    if (t.startsWith('[') && t.contains(']'))
        return QString::fromUtf8(t.mid(1, t.indexOf(']') - 1)).trimmed();
    return {};
}

bool keyMatches(const QByteArray& line, const QString& key)
{
    const qsizetype eq = line.indexOf('=');
    return eq >= 0 &&
           QString::fromUtf8(line.left(eq)).trimmed().compare(key, Qt::CaseInsensitive) == 0;
}

} // namespace

ProfileFile::ProfileFile(QString path) : m_path(std::move(path)) {}

QString ProfileFile::readString(const QString& section, const QString& key,
                                const QString& defaultText, int bufferSize) const
{
    const qsizetype room = qMax(0, bufferSize - 1);
    bool inSection = false;
    for (const QByteArray& line : readLines(m_path)) {
        const QString name = sectionOf(line);
        if (!name.isNull()) {
            inSection = name.compare(section, Qt::CaseInsensitive) == 0;
            continue;
        }
        if (inSection && keyMatches(line, key)) {
            QString value = QString::fromUtf8(line.mid(line.indexOf('=') + 1)).trimmed();
            if (value.size() >= 2 && value.startsWith(QLatin1Char('"')) &&
                value.endsWith(QLatin1Char('"')))
                value = value.mid(1, value.size() - 2);
            return value.left(room);
        }
    }
    return defaultText.left(room);
}

bool ProfileFile::writeString(const QString& section, const QString& key, const QString& value)
{
    QList<QByteArray> lines = readLines(m_path);
    const QByteArray entry = key.toUtf8() + '=' + value.toUtf8();
    qsizetype sectionLine = -1, insertAt = -1;
    bool inSection = false, replaced = false;
    for (qsizetype i = 0; i < lines.size() && !replaced; ++i) {
        const QString name = sectionOf(lines[i]);
        if (!name.isNull()) {
            inSection = name.compare(section, Qt::CaseInsensitive) == 0;
            if (inSection && sectionLine < 0)
                sectionLine = insertAt = i + 1;
            continue;
        }
        if (!inSection)
            continue;
        if (keyMatches(lines[i], key)) {
            lines[i] = entry;
            replaced = true;
        } else if (!lines[i].trimmed().isEmpty()) {
            insertAt = i + 1;
        }
    }
    if (!replaced) {
        if (sectionLine < 0) {
            lines.append('[' + section.toUtf8() + ']');
            lines.append(entry);
        } else {
            lines.insert(insertAt, entry);
        }
    }
    // Written whole through a temporary file: a failed write keeps the old file intact.
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QByteArray text;
    for (const QByteArray& line : lines)
        text += line + "\r\n";
    file.write(text);
    return file.commit();
}

bool ProfileFile::remove()
{
    return QFile::remove(m_path);
}

} // namespace nubo::core
