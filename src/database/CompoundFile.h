// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace nubo::database {

// Takes one stream out of an OLE2 compound file held in memory. The name is matched without
// regard to case; the stream is never taken larger than the file that holds it. A file whose
// header gives its small-stream container a size of 0 while small sectors are in use is still
// read: the container's sector chain decides.
std::optional<QByteArray> compoundFileStream(const QByteArray& file, const QString& name);

// Whether the bytes begin as a compound file does.
bool looksLikeCompoundFile(const QByteArray& head);

} // namespace nubo::database
