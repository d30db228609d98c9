// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/SheetSettingsStore.h"

#include <QFile>
#include <QHash>
#include <QSaveFile>

#include <optional>

namespace nubo::database {
namespace {

constexpr qint64 kLargestFile = 64 * 1024;

using Fields = QHash<QString, QString>;

QString colorText(quint32 rgb)
{
    return QStringLiteral("%1").arg(rgb & 0xFFFFFF, 6, 16, QLatin1Char('0')).toUpper();
}

QString flagText(bool on)
{
    return on ? QStringLiteral("1") : QStringLiteral("0");
}

QByteArray fileText(const SheetSettings& settings)
{
    const SheetStyle& s = settings.style;
    const QList<std::pair<const char*, QString>> lines = {
        {"NOMBRE", settings.sheetName},
        {"COLORLINEA", colorText(s.borderColor)},
        {"COLORRELLENO", colorText(s.fillColor)},
        {"FUENTE", s.fontName},
        {"TAMANO", QString::number(s.fontSize)},
        {"NEGRITA", flagText(s.bold)},
        {"CURSIVA", flagText(s.italic)},
        {"SUBRAYADO", flagText(s.underline)},
        {"COLORFUENTE", colorText(s.fontColor)},
        {"ESTILOLINEA", QString::number(s.lineStyle)},
        {"GROSORLINEA", QString::number(s.weight)},
    };
    QString text = QStringLiteral("[HOJA]\n");
    for (const auto& [key, value] : lines)
        text += QLatin1String(key) + QLatin1Char('=') + value + QLatin1Char('\n');
    return text.toUtf8();
}

// The KEY=value lines of the file, keys in capitals; nothing when it is no such file.
std::optional<Fields> readFields(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kLargestFile)
        return std::nullopt;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    if (lines.isEmpty() ||
        lines.first().trimmed().compare(QStringLiteral("[HOJA]"), Qt::CaseInsensitive) != 0)
        return std::nullopt;
    Fields fields;
    for (const QString& line : lines.mid(1)) {
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (equals > 0)
            fields.insert(line.left(equals).trimmed().toUpper(),
                          line.mid(equals + 1).remove(QLatin1Char('\r')));
    }
    return fields;
}

// Reads one field after another; the first missing or malformed one marks the file damaged.
class FieldReader final
{
public:
    explicit FieldReader(const Fields& fields) : m_fields(fields) {}

    bool damaged() const { return m_damaged; }

    QString text(const char* key)
    {
        const auto found = m_fields.constFind(QLatin1String(key));
        m_damaged = m_damaged || found == m_fields.constEnd();
        return found == m_fields.constEnd() ? QString() : *found;
    }
    quint32 color(const char* key)
    {
        const QString value = text(key);
        bool ok = false;
        const uint rgb = value.toUInt(&ok, 16);
        return check(ok && value.size() == 6, rgb);
    }
    bool flag(const char* key)
    {
        const QString value = text(key);
        return check(value == QLatin1String("0") || value == QLatin1String("1"),
                     value == QLatin1String("1"));
    }
    int number(const char* key)
    {
        bool ok = false;
        const int value = text(key).toInt(&ok);
        return check(ok, value);
    }
    double points(const char* key)
    {
        bool ok = false;
        const double value = text(key).toDouble(&ok);
        return check(ok && value >= 1 && value <= 409, value);
    }

private:
    template <typename T> T check(bool ok, T value)
    {
        m_damaged = m_damaged || !ok;
        return value;
    }

    const Fields& m_fields;
    bool m_damaged = false;
};

} // namespace

QString SheetSettingsStore::path() const
{
    return m_app.resolve(QStringLiteral("\\ini\\Hoja.nbo"));
}

SheetSettings SheetSettingsStore::load() const
{
    const std::optional<Fields> fields = readFields(path());
    if (!fields)
        return {};
    FieldReader read(*fields);
    SheetSettings settings;
    SheetStyle& s = settings.style;
    settings.sheetName = read.text("NOMBRE");
    s.borderColor = read.color("COLORLINEA");
    s.fillColor = read.color("COLORRELLENO");
    s.fontName = read.text("FUENTE");
    s.fontSize = read.points("TAMANO");
    s.bold = read.flag("NEGRITA");
    s.italic = read.flag("CURSIVA");
    s.underline = read.flag("SUBRAYADO");
    s.fontColor = read.color("COLORFUENTE");
    s.lineStyle = read.number("ESTILOLINEA");
    s.weight = read.number("GROSORLINEA");
    if (read.damaged() || s.fontName.trimmed().isEmpty())
        return {};
    return settings;
}

bool SheetSettingsStore::save(const SheetSettings& settings) const
{
    QSaveFile file(path());
    if (!file.open(QIODevice::WriteOnly))
        return false;
    const QByteArray text = fileText(settings);
    if (file.write(text) != text.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

} // namespace nubo::database
