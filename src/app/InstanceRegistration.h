// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/ActivityLog.h"
#include "platform/IRegistry.h"

namespace nubo::app {

// Publishes the running instance under the registry key "Software\Nubo15".
class InstanceRegistration final
{
public:
    InstanceRegistration(platform::IRegistry& registry, core::ActivityLog& log)
        : m_registry(registry), m_log(log)
    {
    }

    void RegistrarInstancia(quint64 windowHandle, int multipleInstances,
                            const QString& executablePath);

    static const QString kKey;

    // The first four characters of the handle's decimal text, always four bytes long.
    static QByteArray handleBytes(quint64 windowHandle);

private:
    platform::IRegistry& m_registry;
    core::ActivityLog& m_log;
};

} // namespace nubo::app
