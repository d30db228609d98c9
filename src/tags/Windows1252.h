#pragma once

#include <QByteArray>
#include <QString>

namespace nubo::tags {

// Decodes Windows-1252 bytes one character per byte; zero bytes stay as U+0000 and the five
// unassigned bytes map to the control characters of the same value, as the Windows table does.
QString decodeWindows1252(const QByteArray& bytes);

} // namespace nubo::tags
