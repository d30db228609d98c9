// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds arbitrary bytes to the tag library through our reader, under each format's name: the
// last byte picks the extension, so the seed files (tests/tags/fixtures) keep their format when
// one byte is appended.
#include "tags/FileProperties.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const char* const kNames[] = {"f.mp3", "f.flac", "f.ogg", "f.m4a", "f.opus",
                                         "f.wma", "f.wav",  "f.ape", "f"};
    const char* name = kNames[size ? data[size - 1] % std::size(kNames) : 0];
    const QByteArray bytes =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    nubo::tags::readFileProperties(bytes, QString::fromLatin1(name));
    return 0;
}
