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

    QList<DriveInfo> drives() const override { return list; }
    FloppyPresence floppyPresence() const override { return floppies; }

    QString drivePrefixOf(const QString& absolutePath) const override
    {
        QString best;
        bool found = false;
        for (const DriveInfo& d : list) {
            QString prefix = d.mountPoint;
            while (prefix.endsWith(QLatin1Char('/')))
                prefix.chop(1);
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
            QString prefix = d.mountPoint;
            while (prefix.endsWith(QLatin1Char('/')))
                prefix.chop(1);
            if (drive == d.listText() || drive == d.mountPoint || drive == prefix ||
                (!d.device.isEmpty() && drive == d.device))
                return d.type;
        }
        return DriveType::NoRootDir;
    }
};

} // namespace nubo::platform
