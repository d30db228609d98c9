// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <limits>

namespace nubo::core {

// The fields of a disc record, in the order the files store them.
enum class DiscField : int {
    Origen,
    Etiqueta,
    Serie,
    Sistema,
    Capacidad,
    Libre,
    Fecha,
    Carpeta,
    Mascara,
    Ubicacion,
    Notas
};

inline constexpr int kDiscFieldCount = 11;

// Their captions: the header of the "Discos" sheet and the fields of the "Discos" table.
QStringList discCaptions();
QString discsTableName();

// What a catalogue remembers of one disc (one group, ORIGEN, of its rows): what the volume said
// when it was searched, and where the user keeps it.
struct DiscRecord
{
    static constexpr qint64 kNoSize = -1;
    static constexpr qint64 kNoDate = std::numeric_limits<qint64>::min();

    QString origen;             // the group name its rows carry
    QString etiqueta;           // volume label
    QString serie;              // serial number as the volume panel shows it
    QString sistema;            // file system
    qint64 capacidad = kNoSize; // bytes
    qint64 libre = kNoSize;     // bytes
    qint64 fecha = kNoDate;     // when catalogued, seconds since 1970-01-01 UTC
    QString carpeta;            // the folder searched, without the drive
    QString mascara;            // the file mask of the search
    QString ubicacion;          // typed by the user: "Estante 3, caja azul"
    QString notas;              // typed by the user: "prestado a Luis"

    // Sizes in bytes and the date as "yyyy-MM-dd hh:mm"; unknown values empty.
    QString text(DiscField field) const;
    // As FileDetails::setText: false when the text is no value of the field.
    [[nodiscard]] bool setText(DiscField field, const QString& text);

    bool operator==(const DiscRecord&) const = default;
};

// The serial number as the volume panel shows it.
QString serialText(quint32 serial);

// The record of a group in records, or nullptr.
const DiscRecord* findDisc(const QList<DiscRecord>& records, const QString& origen);

} // namespace nubo::core
