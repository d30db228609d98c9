// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDirectoryReader.h"

namespace nubo::platform {

// Folder listings from readdir, trusting d_type and asking lstat only when it is unknown.
class LinuxDirectoryReader final : public IDirectoryReader
{
public:
    std::optional<QList<DirEntry>> read(const QString& folder) const override;
    std::optional<QList<DirEntry>> readNative(const QByteArray& folder) const override;
};

} // namespace nubo::platform
