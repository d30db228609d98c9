// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueRow.h"

namespace nubo::platform {
class IDrives;
}

namespace nubo::catalogue {

// Turns a file's path into a catalogue row, the drive being the path's drive prefix.
// It keeps the name and folder of its last call: a bare file name inherits them.
class RowDeriver final
{
public:
    explicit RowDeriver(const platform::IDrives& drives) : m_drives(drives) {}

    // The row for path (the group name left empty). On return path has been cut down to the
    // file's folder with its trailing '/', or, for a bare name, to the name without extension.
    CatalogueRow derive(QString& path);

private:
    const platform::IDrives& m_drives;
    QString m_lastNombre;
    QString m_lastDireccion;
};

} // namespace nubo::catalogue
