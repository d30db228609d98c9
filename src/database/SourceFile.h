// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Outcome.h"

#include <QByteArray>
#include <QList>
#include <QString>

namespace nubo::database {

// No catalogue file is larger: a Jet 4 database holds at most 2 GiB, and so does a version 3
// compound file's stream ([MS-CFB] 2.6.3, stream size), which is what a workbook is kept in.
inline constexpr qint64 kMaxCatalogueFileSize = qint64(2) << 30;

// Reads a whole catalogue file. Only a regular file is read (checked on the open descriptor,
// which is opened without blocking, so a FIFO cannot hang the caller), never more bytes than
// its size, and a file larger than the limit is refused before anything is allocated. A refusal
// names the file, in Spanish.
[[nodiscard]] Outcome<QByteArray> readSourceFile(const QString& path,
                                                 qint64 limit = kMaxCatalogueFileSize);
// The same in blocks of blockSize bytes (the last one shorter), so that a reader can free each
// part once it is done with it.
[[nodiscard]] Outcome<QList<QByteArray>> readSourceBlocks(const QString& path, qsizetype blockSize,
                                                          qint64 limit = kMaxCatalogueFileSize);

} // namespace nubo::database
