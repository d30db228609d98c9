// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDrives.h"

#include <QStringList>

namespace nubo::search {

// The entries of the search window's drive list and the rules for choosing one by text.
class DriveList final
{
public:
    explicit DriveList(const platform::IDrives& drives) : m_drives(drives) { refresh(); }

    void refresh() { m_entries = m_drives.drives(); }
    const QList<platform::DriveInfo>& entries() const { return m_entries; }
    QStringList texts() const;

    // The entry a text names: its list text, its mount point (with or without a trailing
    // '/') or its device node; -1 for none.
    int indexOf(const QString& text) const;
    // The entry whose mount point holds path (the longest such), -1 for none.
    int indexHolding(const QString& path) const;
    // 0 when text names a drive with a medium; otherwise the device-unavailable error, 68.
    int check(const QString& text) const;

    // The path a drive text stands for: a labelled drive's entry text without its " [label]".
    QString pathOf(const QString& driveText) const;
    // A folder path joined with '/', without doubling a trailing one.
    static QString withSlash(const QString& path);

private:
    const platform::IDrives& m_drives;
    QList<platform::DriveInfo> m_entries;
};

} // namespace nubo::search
