// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/KeyFile.h"

#include <QFile>

namespace nubo::platform {

KeyFile KeyFile::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return parse(file.readAll());
}

KeyFile KeyFile::parse(const QByteArray& bytes)
{
    KeyFile result;
    Group* current = nullptr;
    for (const QByteArray& rawLine : bytes.split('\n')) {
        const QString line = QString::fromUtf8(rawLine).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            current = &result.m_groups[line.mid(1, line.size() - 2)];
            continue;
        }
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (!current || equals <= 0)
            continue;
        const QString key = line.left(equals).trimmed();
        if (!current->contains(key))
            current->insert(key, line.mid(equals + 1).trimmed());
    }
    return result;
}

QStringList KeyFile::list(const QString& value)
{
    QStringList items;
    QString item;
    for (qsizetype i = 0; i < value.size(); ++i) {
        if (value.at(i) == QLatin1Char('\\') && i + 1 < value.size() &&
            value.at(i + 1) == QLatin1Char(';')) {
            item += QLatin1Char(';');
            ++i;
        } else if (value.at(i) == QLatin1Char(';')) {
            if (!item.isEmpty())
                items.append(item);
            item.clear();
        } else {
            item += value.at(i);
        }
    }
    if (!item.isEmpty())
        items.append(item);
    return items;
}

QString KeyFile::unescape(const QString& value)
{
    QString result;
    for (qsizetype i = 0; i < value.size(); ++i) {
        const QChar c = value.at(i);
        if (c != QLatin1Char('\\') || i + 1 == value.size()) {
            result += c;
            continue;
        }
        const QChar next = value.at(++i);
        switch (next.unicode()) {
        case 's':
            result += QLatin1Char(' ');
            break;
        case 'n':
            result += QLatin1Char('\n');
            break;
        case 't':
            result += QLatin1Char('\t');
            break;
        case 'r':
            result += QLatin1Char('\r');
            break;
        case '\\':
            result += QLatin1Char('\\');
            break;
        default:
            result += c;
            result += next;
            break;
        }
    }
    return result;
}

} // namespace nubo::platform
