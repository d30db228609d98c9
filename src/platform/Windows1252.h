// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

namespace nubo::platform {

// File names that are not UTF-8 come, on the discs people catalogue, from Windows, whose
// names were in Windows-1252. Each byte reads as one character; the five bytes that code page
// leaves undefined read as the C1 control of the same number, so every name reads back to
// its own bytes.
QString decodeWindows1252(QByteArrayView bytes);
// The bytes of a text read with decodeWindows1252; nothing when a character has no byte.
std::optional<QByteArray> encodeWindows1252(QStringView text);

// True when path names no file as UTF-8 but does once written in Windows-1252: a file found
// under a name that is not UTF-8, which can be listed but not opened by its shown name.
bool isWindows1252OnlyName(const QString& path);

} // namespace nubo::platform
