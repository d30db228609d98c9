// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/FileDetails.h"

#include <QString>
#include <QStringList>

namespace nubo::catalogue {

// The columns of a catalogue row, in display order (0-based): the five texts, then the file's
// details in the order core::DetailField gives them.
enum class Column : int {
    Nombre = 0,
    Direccion = 1,
    Origen = 2,
    Formato = 3,
    Unidad = 4,
    Tamano = 5,
    Fecha,
    Titulo,
    Artista,
    Album,
    Ano,
    Pista,
    Genero,
    Duracion
};

// The five text columns, the ones text(Column) returns by reference.
inline constexpr int kTextColumnCount = 5;
inline constexpr int kColumnCount = kTextColumnCount + core::kDetailFieldCount;

inline bool isDetailColumn(Column column)
{
    return static_cast<int>(column) >= kTextColumnCount;
}
inline core::DetailField detailFieldOf(Column column)
{
    return static_cast<core::DetailField>(static_cast<int>(column) - kTextColumnCount);
}

// The column captions as the list shows them.
inline QStringList columnCaptions()
{
    return QStringList{QStringLiteral("NOMBRE"), QStringLiteral("DIRECCION"),
                       QStringLiteral("ORIGEN"), QStringLiteral("FORMATO"),
                       QStringLiteral("UNIDAD")} +
           core::detailCaptions();
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

// One catalogued file: its five texts and what is known of its file.
struct CatalogueRow
{
    QString nombre;    // file name without extension
    QString direccion; // folder without the drive prefix, with leading and trailing separator
    QString origen;    // the group name at the time of adding
    QString formato;   // extension in capitals, or "ARCHIVO"
    QString unidad;    // drive prefix, or "NN"
    core::FileDetails details = {};

    // One of the five text columns; a detail column gives the drive's text.
    const QString& text(Column column) const;
    QString& text(Column column);
    // Any column as the list shows it.
    QString displayText(Column column) const
    {
        return isDetailColumn(column) ? details.text(detailFieldOf(column)) : text(column);
    }

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
    default:
        break;
    }
    return unidad;
}

inline QString& CatalogueRow::text(Column column)
{
    return const_cast<QString&>(static_cast<const CatalogueRow*>(this)->text(column));
}

} // namespace nubo::catalogue
