// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/CatalogueRecord.h"

#include <QList>
#include <QProcess>
#include <QStandardPaths>

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

// Runs an independent checker; an empty result with ok false means it could not run.
struct ToolResult
{
    bool ran = false;
    int status = -1;
    QByteArray out;
    QByteArray err;
};

inline ToolResult runTool(const QString& program, const QStringList& args, int timeoutMs = 60000)
{
    ToolResult result;
    const QString found = QStandardPaths::findExecutable(program);
    if (found.isEmpty())
        return result;
    QProcess process;
    process.start(found, args);
    if (!process.waitForFinished(timeoutMs))
        return result;
    result.ran = true;
    result.status = process.exitCode();
    result.out = process.readAllStandardOutput();
    result.err = process.readAllStandardError();
    return result;
}

} // namespace nubo::database::test
