// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/RuntimeError.h"

namespace nubo::core {

RuntimeError RuntimeError::fromNumber(int number)
{
    switch (number) {
    case 5:
        return {number, QStringLiteral("Llamada a procedimiento o argumento no válidos")};
    case 6:
        return {number, QStringLiteral("Desbordamiento")};
    case 11:
        return {number, QStringLiteral("División por cero")};
    case 13:
        return {number, QStringLiteral("No coinciden los tipos")};
    case errors::kFileNotFound:
        return {number, QStringLiteral("No se ha encontrado el archivo")};
    case errors::kDeviceUnavailable:
        return {number, QStringLiteral("Dispositivo no disponible")};
    case errors::kPathFileAccess:
        return {number, QStringLiteral("Error de acceso a la ruta o el archivo")};
    case errors::kPathNotFound:
        return {number, QStringLiteral("No se ha encontrado la ruta de acceso")};
    case errors::kInvalidPicture:
        return {number, QStringLiteral("Imagen no válida")};
    default:
        return {number, QStringLiteral("Error definido por la aplicación o el objeto")};
    }
}

} // namespace nubo::core
