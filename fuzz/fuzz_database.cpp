// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds arbitrary bytes to the database reader.
#include "database/DatabaseReader.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    nubo::database::DatabaseReader reader;
    if (reader.read(bytes, QStringLiteral("fuzz")))
        reader.forEachRecord([](nubo::database::CatalogueRecord&&) { return true; });
    return 0;
}
