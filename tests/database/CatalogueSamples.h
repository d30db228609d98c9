// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/CatalogueRecord.h"

#include <QList>

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

} // namespace nubo::database::test
