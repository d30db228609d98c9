// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/DiscRecord.h"
#include "search/IWalkHost.h"

namespace nubo::search {

// The list a search fills, as the engine sees it: the walk's sink and what the engine must ask
// of the list window. Everything the engine only reports leaves as SearchEngine's signals.
// The list window's side implements it; tests use a fake.
class ISearchHost : public IWalkHost
{
public:
    // The catalogue list's row count.
    virtual int rowCount() const = 0;
    // txtvolumename: offered as the group's name.
    virtual QString volumeName() const = 0;
    // True, after telling the user, while a catalogue save or load has the list: no search may
    // add rows under it.
    virtual bool refuseWhileListBusy() { return false; }
    // A walk starts adding rows, and ends: the rows' details are read meanwhile, one file at a
    // time in the order found on an optical disc, and leaving the walk a processor.
    virtual void walkStarts(bool opticalDisc) { Q_UNUSED(opticalDisc); }
    virtual void walkEnds() {}
    // A search's record of its disc, the group (ORIGEN) still to fill: the list keeps one per
    // group.
    virtual void recordDisc(const core::DiscRecord& record) { Q_UNUSED(record); }
};

} // namespace nubo::search
