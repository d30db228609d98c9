// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/RawFile.h"

#include <QFile>
#include <QFileInfo>

namespace nubo::core {

QString BytesATexto(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes);
    const qsizetype zero = text.indexOf(QChar(0));
    return zero < 0 ? text : text.left(zero);
}

QString LeerArchivo(const QString& ruta)
{
    const qint64 length = QFileInfo(ruta).size();
    if (length <= 0)
        return {};
    QFile file(ruta);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return BytesATexto(file.read(length));
}

bool EscribirArchivo(const QString& ruta, const QString& texto, bool noSobrescribir)
{
    if (noSobrescribir && QFileInfo::exists(ruta))
        return false;
    // Open-always: create when missing, never truncate; kept so by design.
    QFile file(ruta);
    if (!file.open(QIODevice::ReadWrite))
        return false;
    const QByteArray bytes = texto.toUtf8();
    if (file.write(bytes) != bytes.size())
        return false;
    if (!file.flush())
        return false;
    file.close();
    return file.error() == QFileDevice::NoError;
}

} // namespace nubo::core
