// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/FileCause.h"

#include <cerrno>
#include <cstring>

namespace nubo::database {

QString fileErrorCause(int error)
{
    switch (error) {
    case ENOSPC:
        return QStringLiteral("No queda espacio libre en el disco.");
    case EDQUOT:
        return QStringLiteral("Se ha agotado la cuota de disco del usuario.");
    case EROFS:
        return QStringLiteral("El disco o la carpeta es de solo lectura.");
    case EACCES:
    case EPERM:
        return QStringLiteral("Permiso denegado: no tiene acceso a ese archivo o carpeta.");
    case EIO:
        return QStringLiteral("Error de lectura o escritura en el disco.");
    case EFBIG:
        return QStringLiteral("El archivo supera el tamaño que admite el disco.");
    case ENOENT:
        return QStringLiteral("La carpeta no existe.");
    default:
        return QStringLiteral("Error del sistema %1 (%2).")
            .arg(error)
            .arg(QString::fromLocal8Bit(strerror(error)));
    }
}

} // namespace nubo::database
