// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IDrives.h"

namespace nubo::platform {

// Drives as a test sets them: a list of entries, the longest mount point holds a path.
class FakeDrives final : public IDrives
{
public:
    QList<DriveInfo> list;
    FloppyPresence floppies;

    void add(const QString& mountPoint, DriveType type, const QString& label = {})
    {
        DriveInfo info;
        info.mountPoint = mountPoint;
        info.type = type;
        info.label = label;
        list.append(info);
    }

    // An optical drive with no disc in it: known only by its device.
    void addEmptyCd(const QString& device)
    {
        DriveInfo info;
        info.device = device;
        info.type = DriveType::CdRom;
        info.hasMedium = false;
        list.append(info);
    }

    QList<DriveInfo> drives() const override { return list; }
    FloppyPresence floppyPresence() const override { return floppies; }

    QString drivePrefixOf(const QString& absolutePath) const override
    {
        QString best;
        bool found = false;
        for (const DriveInfo& d : list) {
            const QString prefix = withoutTrailingSlashes(d.mountPoint);
            if ((absolutePath.startsWith(prefix + QLatin1Char('/')) || absolutePath == prefix) &&
                (!found || prefix.size() > best.size())) {
                best = prefix;
                found = true;
            }
        }
        return best;
    }

    DriveType driveType(const QString& drive) const override
    {
        for (const DriveInfo& d : list) {
            const QString prefix = withoutTrailingSlashes(d.mountPoint);
            if (drive == d.listText() || drive == d.mountPoint || drive == prefix ||
                (!d.device.isEmpty() && drive == d.device))
                return d.type;
        }
        return DriveType::NoRootDir;
    }

private:
    static QString withoutTrailingSlashes(QString path)
    {
        while (path.endsWith(QLatin1Char('/')))
            path.chop(1);
        return path;
    }
};

} // namespace nubo::platform
