// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/InstanceRegistration.h"

namespace nubo::app {

const QString InstanceRegistration::kKey = QStringLiteral("HKEY_LOCAL_MACHINE\\Software\\Nubo15");

QByteArray InstanceRegistration::handleBytes(quint64 windowHandle)
{
    // Only four characters of the decimal handle are kept; the truncation is required.
    QByteArray bytes = QByteArray::number(windowHandle).left(4);
    bytes.append(4 - bytes.size(), '\0');
    return bytes;
}

void InstanceRegistration::RegistrarInstancia(quint64 windowHandle, int multipleInstances,
                                              const QString& executablePath)
{
    m_registry.deleteKey(kKey);
    if (!m_registry.createKey(kKey))
        m_log.AnotarEnLog(QStringLiteral("No se ha podido crear la clave Nubo15"));
    // Kept: the value name "InstalationPath" with one "l", as the key has always held it.
    m_registry.setBinaryValue(kKey, QStringLiteral("Hwnd"), handleBytes(windowHandle));
    m_registry.setBinaryValue(kKey, QStringLiteral("Minstances"),
                              QByteArray(1, char(multipleInstances ? 1 : 0)));
    m_registry.setStringValue(kKey, QStringLiteral("InstalationPath"), executablePath);
}

} // namespace nubo::app
