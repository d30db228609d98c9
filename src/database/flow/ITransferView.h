// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace nubo::database {

// The list window's part of a catalogue save or load: its progress bar, the list's input and
// letting pending window events run (which is how Escape reaches the loops).
class ITransferView
{
public:
    virtual ~ITransferView() = default;

    // Disables the list and shows the progress bar at 0 of maximum.
    virtual void beginProgress(int maximum) = 0;
    // May be coalesced: only the last value before the bar is seen needs to show.
    virtual void setProgress(int value) = 0;
    // Hides the progress bar and enables the list again.
    virtual void endProgress() = 0;
    virtual void processEvents() = 0;
};

} // namespace nubo::database
