// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <limits>
#include <optional>

namespace nubo::core {

// The columns a catalogue keeps of a file after its name, folder, group and format, in the
// order the files store them.
enum class DetailField : int {
    Tamano,
    Fecha,
    Titulo,
    Artista,
    Album,
    Ano,
    Pista,
    Genero,
    Duracion
};

inline constexpr int kDetailFieldCount = 9;

// Their captions: the header cells of a workbook and the field names of a database.
QStringList detailCaptions();

// What a catalogue keeps of a file beyond its name: size and modification time from the file
// system, and for audio its tags and length. Every field may be unknown (a row loaded from a
// catalogue written before these columns, a file without tags); numbers are kept as numbers so
// a million rows stay small and sort as numbers.
struct FileDetails
{
    static constexpr qint64 kNoSize = -1;
    static constexpr qint64 kNoDate = std::numeric_limits<qint64>::min();
    static constexpr qint32 kNoDuration = -1;

    qint64 size = kNoSize;     // bytes
    qint64 modified = kNoDate; // seconds since 1970-01-01 UTC, earlier dates negative
    QString title;
    QString artist;
    QString album;
    QString genre;
    quint16 year = 0;              // 0: none
    quint16 track = 0;             // 0: none
    qint32 duration = kNoDuration; // whole seconds

    // The field as a catalogue shows and stores it: TAMAÑO in bytes, FECHA as
    // "yyyy-MM-dd hh:mm" in local time, DURACION as "m:ss" ("h:mm:ss" past an hour); unknown
    // fields are empty.
    QString text(DetailField field) const;
    // Takes a field back from the text a file or the user holds. Blank text clears the field;
    // text that is not a value of the field leaves it unknown and answers false, so the caller
    // can say what it skipped.
    [[nodiscard]] bool setText(DetailField field, const QString& text);
    // Whether any field is known.
    bool isEmpty() const;

    bool operator==(const FileDetails&) const = default;
};

QString dateText(qint64 secondsSinceEpoch);
QString durationText(qint32 seconds);
// A size or a date as dateText writes it (or an ISO 8601 date), read back; none for other text.
std::optional<qint64> sizeFromText(const QString& text);
std::optional<qint64> dateFromText(const QString& text);

} // namespace nubo::core
