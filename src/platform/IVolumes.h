// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

namespace nubo::platform {

// What the volume query tells about the volume that holds a path.
struct VolumeDetails
{
    QString label;
    quint32 serial = 0;
    quint32 maxComponentLength = 0;
    quint32 flags = 0;
    QString fileSystem;
};

// Size and free space of a volume in bytes.
struct VolumeSpace
{
    quint64 totalBytes = 0;
    quint64 freeBytes = 0;
};

// Volume details and space of the drive that holds a path.
class IVolumes
{
public:
    virtual ~IVolumes() = default;

    // Nothing when the path names no readable volume (missing path, drive without a medium).
    virtual std::optional<VolumeDetails> details(const QString& path) const = 0;
    virtual std::optional<VolumeSpace> space(const QString& path) const = 0;
};

} // namespace nubo::platform
