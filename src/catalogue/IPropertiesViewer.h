// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/RowFacts.h"

#include <QString>

namespace nubo::catalogue {

// The properties window as the list window opens it and keeps it on the selected row; the
// composition supplies it, so the list window needs none of the tag windows.
class IPropertiesViewer
{
public:
    virtual ~IPropertiesViewer() = default;

    // Opens the window (or brings it forward) on the file at path.
    virtual void showProperties(const QString& path) = 0;
    virtual bool isOpen() const = 0;
    // Shows the file at path in the open window without taking the focus, so the list's arrow
    // keys go on moving the selection.
    virtual void followSelection(const QString& path) = 0;
    // The same two for a row whose file cannot be found (its disc is not in the drive): the
    // window shows what the catalogue knows of it.
    virtual void showRowFacts(const RowFacts& facts) = 0;
    virtual void followRowFacts(const RowFacts& facts) = 0;
};

} // namespace nubo::catalogue
