// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileDetails.h"

#include <string>

namespace nubo::catalogue {

// A detail's text as core::FileDetails::text gives it, appended to a find key as UTF-8. The
// numbers (sizes, dates, years, tracks, lengths) are written without a QString or a QDateTime
// per row, so folding the keys of a few hundred thousand rows stays quick. Not thread-safe:
// it keeps the local time's offset of the last hour it met.
class DetailKeyText final
{
public:
    // The text fields are left to the caller, which folds them; unknown numbers append nothing.
    // False for a text field.
    bool appendNumber(const core::FileDetails& details, core::DetailField field, std::string& key);

private:
    void appendDate(qint64 secondsSinceEpoch, std::string& key);
    // The local time's offset from UTC all through the hour that holds the moment; false when it
    // changes within that hour.
    bool offsetOfHour(qint64 secondsSinceEpoch, qint64& offset);

    qint64 m_hour = -1;
    qint64 m_hourOffset = 0;
    bool m_hourUniform = false;
    bool m_hourKnown = false;
};

} // namespace nubo::catalogue
