// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ShownColumnsStore.h"

#include <QFile>
#include <QSaveFile>

namespace nubo::catalogue {

namespace {

constexpr qint64 kLargestFile = 16 * 1024;
const QString kSectionLine = QStringLiteral("[COLUMNAS]");

} // namespace

QString ShownColumnsStore::path() const
{
    return m_app.resolve(QStringLiteral("\\ini\\Columnas.nbo"));
}

QString ShownColumnsStore::keyOf(Column column)
{
    // The captions' only letter beyond ASCII is the Ñ of TAMAÑO and AÑO.
    return QString(columnCaptions().at(int(column))).replace(QChar(0x00D1), QLatin1Char('N'));
}

QList<Column> ShownColumnsStore::load() const
{
    QFile file(path());
    if (!file.open(QIODevice::ReadOnly) || file.size() > kLargestFile)
        return {};
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    if (lines.first().trimmed().compare(kSectionLine, Qt::CaseInsensitive) != 0)
        return {};
    QList<Column> shown;
    for (int c = kTextColumnCount; c < kColumnCount; ++c) {
        const QString wanted = keyOf(Column(c)) + QStringLiteral("=1");
        for (const QString& line : lines) {
            if (line.trimmed().remove(QLatin1Char(' ')).compare(wanted, Qt::CaseInsensitive) == 0) {
                shown.append(Column(c));
                break;
            }
        }
    }
    return shown;
}

bool ShownColumnsStore::save(const QList<Column>& shown) const
{
    QString text = kSectionLine + QLatin1Char('\n');
    for (int c = kTextColumnCount; c < kColumnCount; ++c)
        text += keyOf(Column(c)) +
                (shown.contains(Column(c)) ? QStringLiteral("=1\n") : QStringLiteral("=0\n"));
    const QByteArray bytes = text.toUtf8();
    QSaveFile file(path());
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (file.write(bytes) != bytes.size()) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}

} // namespace nubo::catalogue
