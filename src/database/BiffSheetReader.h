// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/BiffCodePage.h"
#include "database/BiffWorkbookParser.h"

#include <QByteArrayView>
#include <QList>
#include <QString>

namespace nubo::database {

// What a sheet's cells need of the workbook's globals.
struct BiffGlobals
{
    bool biff8 = true; // false: Excel 5/95, whose texts are 8-bit in the workbook's code page
    BiffCodePage codePage;
    QList<QString> strings;
};

// Reads the worksheet substream at from into sheet: columns before valuesFrom as the text a
// spreadsheet shows (only A to D are kept), the others as values. Damage is named in sheet.
void readBiffSheet(const BiffGlobals& globals, QByteArrayView stream, qsizetype from,
                   quint32 valuesFrom, BiffSheetContent& sheet);

} // namespace nubo::database
