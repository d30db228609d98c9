// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IVolumes.h"

#include <QMap>

namespace nubo::platform {

// Volumes as a test sets them, keyed by the exact path the code asks about.
class FakeVolumes final : public IVolumes
{
public:
    QMap<QString, VolumeDetails> detailsByPath;
    QMap<QString, VolumeSpace> spaceByPath;
    mutable QStringList asked;

    std::optional<VolumeDetails> details(const QString& path) const override
    {
        asked.append(path);
        const auto it = detailsByPath.find(path);
        return it == detailsByPath.end() ? std::nullopt : std::optional<VolumeDetails>(*it);
    }
    std::optional<VolumeSpace> space(const QString& path) const override
    {
        asked.append(path);
        const auto it = spaceByPath.find(path);
        return it == spaceByPath.end() ? std::nullopt : std::optional<VolumeSpace>(*it);
    }
};

} // namespace nubo::platform
