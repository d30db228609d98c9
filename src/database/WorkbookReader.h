// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/DiscRecord.h"
#include "database/BiffWorkbookParser.h"
#include "database/CatalogueRecord.h"
#include "database/LocalDateTexts.h"
#include "platform/Outcome.h"

#include <QByteArray>
#include <QString>

namespace nubo::database {

// Reads a catalogue workbook (Excel 97 or Excel 5/95, in its compound file): the first sheet's
// name and its rows, and the disc records of its "Discos" sheet. Any bytes give rows or an
// error. Rows are numbered as a catalogue lays them out: captions in row 1, data from row 3. A
// sheet with text in row 2 is seen with its rows from 2 on one row lower, so none is lost.
// Columns A to D are the four stored columns, every cell as the text a spreadsheet shows; the
// file details are found after them by their row-1 captions, wherever they stand, and so are
// the disc fields on their sheet.
class WorkbookReader final
{
public:
    [[nodiscard]] Outcome<> open(const QString& path);
    // Reads a whole file held in memory; the name only goes into error messages.
    [[nodiscard]] Outcome<> read(const QByteArray& file, const QString& name);
    void close();

    QString sheetName() const { return m_sheet.name; }
    // The sheet's last used row, counted from 1 (0 for an empty sheet).
    quint32 lastRow() const { return m_sheet.lastRow; }
    // The last row the sheet states it has, counted from 1.
    quint32 declaredLastRow() const { return m_sheet.declaredLastRow; }
    // Empty when the workbook read whole; otherwise what is damaged (the rows before it read).
    QString damage() const { return m_sheet.damage; }
    // One row as a record; row is counted from 1. Values that are no value of their column are
    // left unknown and counted in skipped.
    CatalogueRecord record(quint32 row, SkippedValues* skipped = nullptr) const;
    // Whether the workbook has a sheet of disc records, and its records: one for each row from
    // row 2 on that holds a value, records of groups no row has included.
    bool hasDiscs() const { return m_sheet.named.has_value(); }
    QList<core::DiscRecord> discs(SkippedValues* skipped = nullptr) const;

private:
    Failure fail(const QString& message);
    void findColumns();

    BiffSheetContent m_sheet;
    QList<std::pair<quint16, core::DetailField>> m_detailColumns; // found by their captions
    QList<std::pair<quint16, core::DiscField>> m_discColumns;
    LocalDateTexts m_dates;
};

} // namespace nubo::database
