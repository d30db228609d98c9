// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/RegistryFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace nubo::platform {

namespace {

const QByteArray kHeader = "Windows Registry Editor Version 5.00";

QString quoted(const QString& text)
{
    QString out = text;
    out.replace(QLatin1Char('\\'), QStringLiteral("\\\\"));
    out.replace(QLatin1Char('"'), QStringLiteral("\\\""));
    return QLatin1Char('"') + out + QLatin1Char('"');
}

QString unquoted(const QString& text)
{
    QString out;
    for (qsizetype i = 1; i + 1 < text.size(); ++i) {
        if (text[i] == QLatin1Char('\\') && i + 2 < text.size())
            ++i;
        out.append(text[i]);
    }
    return out;
}

} // namespace

RegistryFile::RegistryFile(QString path) : m_path(std::move(path)) {}

QString RegistryFile::defaultPath()
{
    QString base = qEnvironmentVariable("XDG_CONFIG_HOME");
    if (base.isEmpty())
        base = QDir::homePath() + QStringLiteral("/.config");
    return base + QStringLiteral("/nubo/registry.reg");
}

QList<RegistryFile::Section> RegistryFile::load() const
{
    QList<Section> sections;
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return sections;
    for (const QByteArray& raw : file.readAll().split('\n')) {
        const QString line = QString::fromUtf8(raw).trimmed();
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            sections.append({line.mid(1, line.size() - 2), {}});
        } else if (line.startsWith(QLatin1Char('"')) && !sections.isEmpty()) {
            const qsizetype eq = line.indexOf(QStringLiteral("\"="));
            if (eq > 0)
                sections.last().values.append({unquoted(line.left(eq + 1)), line.mid(eq + 2)});
        }
    }
    return sections;
}

bool RegistryFile::save(const QList<Section>& sections) const
{
    if (!QDir().mkpath(QFileInfo(m_path).path()))
        return false;
    QSaveFile file(m_path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QByteArray text = kHeader + "\n";
    for (const Section& section : sections) {
        text += "\n[" + section.key.toUtf8() + "]\n";
        for (const auto& [name, data] : section.values)
            text += quoted(name).toUtf8() + '=' + data.toUtf8() + '\n';
    }
    file.write(text);
    return file.commit();
}

qsizetype RegistryFile::find(const QList<Section>& sections, const QString& key)
{
    for (qsizetype i = 0; i < sections.size(); ++i) {
        if (sections[i].key.compare(key, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

bool RegistryFile::deleteKey(const QString& key)
{
    QList<Section> sections = load();
    const qsizetype at = find(sections, key);
    if (at < 0)
        return false;
    sections.removeAt(at);
    return save(sections);
}

bool RegistryFile::createKey(const QString& key)
{
    QList<Section> sections = load();
    if (find(sections, key) < 0)
        sections.append({key, {}});
    return save(sections);
}

bool RegistryFile::keyExists(const QString& key) const
{
    return find(load(), key) >= 0;
}

bool RegistryFile::setValue(const QString& key, const QString& name, const QString& rendered)
{
    QList<Section> sections = load();
    const qsizetype at = find(sections, key);
    if (at < 0)
        return false;
    auto& values = sections[at].values;
    auto it = std::find_if(values.begin(), values.end(), [&](const auto& v) {
        return v.first.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (it != values.end())
        it->second = rendered;
    else
        values.append({name, rendered});
    return save(sections);
}

bool RegistryFile::setBinaryValue(const QString& key, const QString& name, const QByteArray& data)
{
    QStringList bytes;
    for (const char byte : data)
        bytes.append(QStringLiteral("%1").arg(quint8(byte), 2, 16, QLatin1Char('0')));
    return setValue(key, name, QStringLiteral("hex:") + bytes.join(QLatin1Char(',')));
}

bool RegistryFile::setStringValue(const QString& key, const QString& name, const QString& text)
{
    return setValue(key, name, quoted(text));
}

QString RegistryFile::rawValue(const QString& key, const QString& name) const
{
    const QList<Section> sections = load();
    const qsizetype at = find(sections, key);
    if (at < 0)
        return {};
    for (const auto& [valueName, data] : sections[at].values) {
        if (valueName.compare(name, Qt::CaseInsensitive) == 0)
            return data;
    }
    return {};
}

} // namespace nubo::platform
