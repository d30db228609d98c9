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
