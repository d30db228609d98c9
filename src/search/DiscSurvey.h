// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/DiscRecord.h"
#include "platform/IDrives.h"
#include "platform/IVolumes.h"

namespace nubo::search {

// What a search records of the disc it searched: the volume's label, serial, file system,
// capacity and free space, when, the folder searched (without its drive, between slashes) and
// the mask. The group (ORIGEN) and what the user types are left for the list to fill.
// folder: the absolute folder searched; now: seconds since 1970-01-01 UTC.
core::DiscRecord surveyDisc(const platform::IVolumes& volumes, const platform::IDrives& drives,
                            const QString& folder, const QString& mask, qint64 now);

} // namespace nubo::search
