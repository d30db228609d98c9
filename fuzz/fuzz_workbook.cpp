// SPDX-License-Identifier: GPL-3.0-or-later
// Feeds arbitrary bytes to the workbook reader: whole compound files, or bare workbook streams
// so the record parser is reached without a valid container around it.
#include "database/BiffWorkbookParser.h"
#include "database/CompoundFile.h"
#include "database/WorkbookReader.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size));
    if (nubo::database::looksLikeCompoundFile(bytes)) {
        nubo::database::WorkbookReader reader;
        if (reader.read(bytes, QStringLiteral("fuzz"))) {
            nubo::database::SkippedValues skipped;
            for (quint32 r = 1; r <= reader.lastRow(); ++r)
                reader.record(r, &skipped);
            reader.discs(&skipped);
        }
    } else {
        // Every sheet after the first is asked for, so its values are read too.
        (void)nubo::database::parseWorkbookStream(bytes, [](const QString&) { return true; });
    }
    return 0;
}
