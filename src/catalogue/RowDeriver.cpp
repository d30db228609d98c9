// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/RowDeriver.h"

#include "platform/IDrives.h"

namespace nubo::catalogue {

namespace {

constexpr QChar kSeparator = QLatin1Char('/');

// Scans from the end: a separator met before any dot means the name has no extension.
// Cuts ".ext" off path and returns "EXT", or returns "ARCHIVO" and leaves path whole.
QString takeFormat(QString& path)
{
    for (qsizetype i = path.size() - 1; i >= 0; --i) {
        if (path.at(i) == kSeparator)
            break;
        if (path.at(i) == QLatin1Char('.')) {
            const QString format = path.mid(i + 1).toUpper();
            path.truncate(i);
            return format;
        }
    }
    return noExtensionText();
}

} // namespace

CatalogueRow RowDeriver::derive(QString& path)
{
    CatalogueRow row;
    // The drive prefix stands where a Windows drive letter and colon stand; the cuts below
    // never reach into it.
    const QString prefix = m_drives.drivePrefixOf(path);
    row.unidad = prefix;
    row.formato = takeFormat(path);

    const qsizetype lowest = prefix.size();
    qsizetype separator = -1;
    for (qsizetype i = path.size() - 1; i >= lowest; --i) {
        if (path.at(i) == kSeparator) {
            separator = i;
            break;
        }
    }
    // Kept: a path without a separator leaves the name and folder of the previous call.
    if (separator >= 0) {
        m_lastNombre = path.mid(separator + 1);
        path.truncate(separator + 1);
        m_lastDireccion = path.mid(prefix.size());
        if (m_lastDireccion.size() < 2)
            m_lastDireccion = rootFolderText();
    }
    row.nombre = m_lastNombre;
    row.direccion = m_lastDireccion;
    return row;
}

} // namespace nubo::catalogue
