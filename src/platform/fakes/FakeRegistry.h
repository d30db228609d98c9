// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IRegistry.h"

#include <QMap>

namespace nubo::platform {

// An in-memory registry; failCreate makes key creation fail as a missing right would.
class FakeRegistry final : public IRegistry
{
public:
    QMap<QString, QMap<QString, QByteArray>> keys;
    bool failCreate = false;

    bool deleteKey(const QString& key) override { return keys.remove(key) > 0; }
    bool createKey(const QString& key) override
    {
        if (failCreate)
            return false;
        keys[key];
        return true;
    }
    bool keyExists(const QString& key) const override { return keys.contains(key); }
    bool setBinaryValue(const QString& key, const QString& name, const QByteArray& data) override
    {
        if (!keys.contains(key))
            return false;
        keys[key][name] = data;
        return true;
    }
    bool setStringValue(const QString& key, const QString& name, const QString& text) override
    {
        return setBinaryValue(key, name, text.toUtf8());
    }
};

} // namespace nubo::platform
