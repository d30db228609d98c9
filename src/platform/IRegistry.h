// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace nubo::platform {

// A registry-like store: keys ("HKEY_LOCAL_MACHINE\Software\Nubo15") holding named, typed
// values. Every call reports success; callers decide which failures matter.
class IRegistry
{
public:
    virtual ~IRegistry() = default;
    virtual bool deleteKey(const QString& key) = 0;
    virtual bool createKey(const QString& key) = 0;
    virtual bool keyExists(const QString& key) const = 0;
    // Values can be set only in an existing key.
    virtual bool setBinaryValue(const QString& key, const QString& name,
                                const QByteArray& data) = 0;
    virtual bool setStringValue(const QString& key, const QString& name, const QString& text) = 0;
};

} // namespace nubo::platform
