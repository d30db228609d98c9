// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IRegistry.h"

#include <QList>
#include <QPair>

namespace nubo::platform {

// A per-user registry store kept as the text of a registry export, one section per key.
// Every change is written at once through a temporary file, so a failed write never
// leaves a damaged store behind.
class RegistryFile final : public IRegistry
{
public:
    explicit RegistryFile(QString path);

    // $XDG_CONFIG_HOME/nubo/registry.reg, or ~/.config/nubo/registry.reg.
    static QString defaultPath();

    bool deleteKey(const QString& key) override;
    bool createKey(const QString& key) override;
    bool keyExists(const QString& key) const override;
    bool setBinaryValue(const QString& key, const QString& name, const QByteArray& data) override;
    bool setStringValue(const QString& key, const QString& name, const QString& text) override;

    // The stored line of a value ("hex:31,32" or "\"text\""), empty when absent.
    QString rawValue(const QString& key, const QString& name) const;

private:
    struct Section
    {
        QString key;
        QList<QPair<QString, QString>> values; // name, rendered data
    };

    [[nodiscard]] QList<Section> load() const;
    [[nodiscard]] bool save(const QList<Section>& sections) const;
    bool setValue(const QString& key, const QString& name, const QString& rendered);
    static qsizetype find(const QList<Section>& sections, const QString& key);

    QString m_path;
};

} // namespace nubo::platform
