// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/CatalogueFiles.h"
#include "database/CatalogueRecord.h"

#include <QFile>
#include <QList>
#include <QTest>

namespace nubo::database::test {

// Rows that exercise the text paths: accents, Japanese, emoji, formula-like texts, empties.
inline QList<CatalogueRecord> sampleRows(int count)
{
    static const QStringList names = {QStringLiteral("Canción de cuna"),
                                      QStringLiteral("夜に駆ける"), QStringLiteral("🎵 Tema 𝄞"),
                                      QStringLiteral("=SUMA(A1:A2)"), QStringLiteral("Ñandú ü ß")};
    QList<CatalogueRecord> rows;
    rows.reserve(count);
    for (int i = 0; i < count; ++i) {
        rows.append({names.at(i % names.size()) + QString::number(i),
                     QStringLiteral("/Música/Álbum %1/").arg(i % 97),
                     i % 7 == 0 ? QString() : QStringLiteral("=grupo"), QStringLiteral("MP3")});
    }
    return rows;
}

// Sample rows with every detail: sizes past 4 GB, dates before 1970, durations past an hour,
// and each field unknown on some rows. Dates fall on whole minutes, as the files keep them.
inline QList<CatalogueRecord> detailedRows(int count)
{
    QList<CatalogueRecord> rows = sampleRows(count);
    for (int i = 0; i < count; ++i) {
        core::FileDetails& d = rows[i].details;
        d.size = i % 11 == 3 ? -1 : qint64(i) * 1000003 + (i % 5 == 0 ? 5'000'000'000'000 : 0);
        d.modified = i % 13 == 4 ? core::FileDetails::kNoDate : (qint64(i) * 7919 - 600000) * 60;
        d.title = i % 6 == 1 ? QString() : QStringLiteral("Corazón partío %1").arg(i);
        d.artist = QStringLiteral("Mercedes Quiroga %1").arg(i % 9);
        d.album = i % 4 == 2 ? QString() : QStringLiteral("Álbum %1").arg(i % 17);
        d.genre = QStringLiteral("Copla");
        d.year = quint16(i % 8 == 5 ? 0 : 1950 + i % 70);
        d.track = quint16(i % 21);
        d.duration = i % 10 == 7 ? -1 : i * 37 % 5000;
    }
    return rows;
}

// Disc records: one with every field, one with nothing but its group, one of a group no row
// has.
inline QList<core::DiscRecord> sampleDiscs()
{
    core::DiscRecord full{QStringLiteral("=grupo"),
                          QStringLiteral("MUSICA_01"),
                          core::serialText(0x1A2B3C4D),
                          QStringLiteral("UDF"),
                          8'000'000'000'000,
                          123'456'789,
                          1'700'000'040,
                          QStringLiteral("/Música"),
                          QStringLiteral("*.mp3;*.flac"),
                          QStringLiteral("Estante 3, caja azul"),
                          QStringLiteral("prestado a Luis")};
    core::DiscRecord bare;
    bare.origen = QStringLiteral("Disco 2");
    core::DiscRecord unknown = full;
    unknown.origen = QStringLiteral("Disco sin filas");
    unknown.fecha = -86400 * 400;
    return {full, bare, unknown};
}

// One row a format, as the data of a test that runs for both.
inline void addFormats()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("workbook") << "lista.xls";
    QTest::newRow("database") << "lista.mdb";
}

// A catalogue of count sample rows with one 4 KiB block three fifths in zeroed, as a bad
// sector leaves it; false when it cannot be made.
inline bool writeZeroedBlockCatalogue(const QString& path, int count)
{
    if (!saveCatalogue(path, {}, rowsOf(sampleRows(count))).ok)
        return false;
    QFile file(path);
    return file.open(QIODevice::ReadWrite) && file.seek(file.size() * 3 / 5 / 4096 * 4096) &&
           file.write(QByteArray(4096, '\0')) == 4096;
}

} // namespace nubo::database::test
