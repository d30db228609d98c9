// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Windows1252.h"

#include <QFile>

#include <algorithm>
#include <array>

#include <sys/stat.h>

namespace nubo::platform {
namespace {

// Bytes 0x80 to 0x9F of Windows-1252 (Unicode's "cp1252.txt" mapping); the undefined ones
// keep their own number.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

QString decodeWindows1252(QByteArrayView bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto byte = quint8(bytes[i]);
        text[i] = QChar(byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80] : char16_t(byte));
    }
    return text;
}

std::optional<QByteArray> encodeWindows1252(QStringView text)
{
    QByteArray bytes(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
            bytes[i] = char(c);
            continue;
        }
        const auto* found = std::find(kHighControls.begin(), kHighControls.end(), c);
        if (found == kHighControls.end())
            return std::nullopt;
        bytes[i] = char(0x80 + (found - kHighControls.begin()));
    }
    return bytes;
}

bool isWindows1252OnlyName(const QString& path)
{
    struct stat info
    {
    };
    if (::stat(QFile::encodeName(path).constData(), &info) == 0)
        return false;
    const std::optional<QByteArray> bytes = encodeWindows1252(path);
    return bytes && ::stat(bytes->constData(), &info) == 0;
}

} // namespace nubo::platform
