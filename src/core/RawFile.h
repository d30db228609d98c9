// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

namespace nubo::core {

// Whole-file reads and writes as the activity log does them.

// The whole file as text; empty when the file is missing, empty or unreadable.
QString LeerArchivo(const QString& ruta);

// Writes text from the start of the file, opening it without truncation: bytes beyond the
// new text keep their old contents. With noSobrescribir, an existing file is left alone.
[[nodiscard]] bool EscribirArchivo(const QString& ruta, const QString& texto, bool noSobrescribir);

// Bytes as text in the system code page, cut at the first zero character.
QString BytesATexto(const QByteArray& bytes);

} // namespace nubo::core
