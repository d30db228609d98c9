// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace nubo::catalogue {

// The five columns of a catalogue row, in display and storage order (0-based).
enum class Column : int { Nombre = 0, Direccion = 1, Origen = 2, Formato = 3, Unidad = 4 };

inline constexpr int kColumnCount = 5;

// The column captions as the list shows them.
inline QStringList columnCaptions()
{
    return {QStringLiteral("NOMBRE"), QStringLiteral("DIRECCION"), QStringLiteral("ORIGEN"),
            QStringLiteral("FORMATO"), QStringLiteral("UNIDAD")};
}

// The folder text of a file that lies in the root of its drive.
inline QString rootFolderText()
{
    return QStringLiteral("DIRECTORIO PRINCIPAL");
}
// The format text of a file whose name has no extension.
inline QString noExtensionText()
{
    return QStringLiteral("ARCHIVO");
}
// The drive text of rows whose drive is not fixed (loaded from a catalogue database).
inline QString unknownDriveText()
{
    return QStringLiteral("NN");
}

// One catalogued file: its five texts.
struct CatalogueRow
{
    QString nombre;    // file name without extension
    QString direccion; // folder without the drive prefix, with leading and trailing separator
    QString origen;    // the group name at the time of adding
    QString formato;   // extension in capitals, or "ARCHIVO"
    QString unidad;    // drive prefix, or "NN"

    const QString& text(Column column) const;
    QString& text(Column column);

    bool operator==(const CatalogueRow&) const = default;
};

inline const QString& CatalogueRow::text(Column column) const
{
    switch (column) {
    case Column::Nombre:
        return nombre;
    case Column::Direccion:
        return direccion;
    case Column::Origen:
        return origen;
    case Column::Formato:
        return formato;
    case Column::Unidad:
        break;
    }
    return unidad;
}

inline QString& CatalogueRow::text(Column column)
{
    return const_cast<QString&>(static_cast<const CatalogueRow*>(this)->text(column));
}

} // namespace nubo::catalogue
