// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/AppFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace nubo::platform {

AppFolder::AppFolder(QString path) : m_path(std::move(path))
{
    while (m_path.size() > 1 && m_path.endsWith(QLatin1Char('/')))
        m_path.chop(1);
}

QString AppFolder::resolve(const QString& relative) const
{
    return resolveIn(m_path, relative);
}

bool AppFolder::createFolder(const QString& name) const
{
    const QFileInfo existing(resolve(name));
    if (existing.isDir())
        return true;
    return QDir(m_path).mkdir(name);
}

namespace {

// The entry of dir whose name equals component without regard to case; exact match first.
QString matchEntry(const QString& dir, const QString& component)
{
    if (QFileInfo::exists(dir + QLatin1Char('/') + component))
        return component;
    const QStringList entries =
        QDir(dir).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries) {
        if (entry.compare(component, Qt::CaseInsensitive) == 0)
            return entry;
    }
    return {};
}

} // namespace

QString AppFolder::resolveIn(const QString& base, const QString& relative)
{
    static const QRegularExpression separators(QStringLiteral("[\\\\/]+"));
    const QStringList components = relative.split(separators, Qt::SkipEmptyParts);
    QString current = base;
    bool matching = true;
    for (const QString& component : components) {
        QString name = component;
        if (matching) {
            const QString found = matchEntry(current, component);
            if (found.isEmpty())
                matching = false;
            else
                name = found;
        }
        current += QLatin1Char('/') + name;
    }
    return current;
}

} // namespace nubo::platform
