// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/DriveList.h"

#include "core/RuntimeError.h"

namespace nubo::search {

namespace {

QString withoutSlash(QString path)
{
    while (path.size() > 1 && path.endsWith(QLatin1Char('/')))
        path.chop(1);
    return path;
}

} // namespace

QStringList DriveList::texts() const
{
    QStringList texts;
    for (const platform::DriveInfo& entry : m_entries)
        texts.append(entry.listText());
    return texts;
}

int DriveList::indexOf(const QString& text) const
{
    if (text.isEmpty())
        return -1;
    const QString path = withoutSlash(text);
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        const platform::DriveInfo& entry = m_entries[i];
        if (text == entry.listText() ||
            (!entry.mountPoint.isEmpty() && path == withoutSlash(entry.mountPoint)) ||
            (!entry.device.isEmpty() && text == entry.device))
            return int(i);
    }
    return -1;
}

int DriveList::indexHolding(const QString& path) const
{
    int found = -1;
    qsizetype longest = -1;
    for (qsizetype i = 0; i < m_entries.size(); ++i) {
        const QString mount = withoutSlash(m_entries[i].mountPoint);
        const bool holds = !mount.isEmpty() && (path == mount || path.startsWith(withSlash(mount)));
        if (holds && mount.size() > longest) {
            found = int(i);
            longest = mount.size();
        }
    }
    return found;
}

int DriveList::check(const QString& text) const
{
    const int index = indexOf(text);
    if (index < 0 || !m_entries[index].hasMedium)
        return core::errors::kDeviceUnavailable;
    return 0;
}

QString DriveList::pathOf(const QString& driveText) const
{
    return platform::pathOfDriveText(m_entries, driveText);
}

QString DriveList::withSlash(const QString& path)
{
    return path.endsWith(QLatin1Char('/')) ? path : path + QLatin1Char('/');
}

} // namespace nubo::search
