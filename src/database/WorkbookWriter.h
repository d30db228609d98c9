// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/BiffSheet.h"
#include "database/BiffStrings.h"
#include "database/CatalogueRecord.h"
#include "database/SheetStyle.h"
#include "platform/Outcome.h"

#include <QIODevice>

#include <optional>

namespace nubo::database {

// What a saved workbook looks like apart from its rows.
struct WorkbookLayout
{
    QString sheetName = QStringLiteral("Colección");
    CatalogueHeader header = defaultCatalogueHeader();
    std::optional<SheetStyle> style; // none: the sheet is left unstyled
};

// Writes a catalogue workbook (one sheet: header row, empty row, data from row 3), row by row.
// Rows are kept as shared-string indices until finish() writes the file, so the writer can be
// finished after any row and the file then holds exactly the rows added so far.
class WorkbookWriter final
{
public:
    static constexpr qsizetype kSheetRows = 65536;
    static constexpr qsizetype kMaxDataRows = kSheetRows - 2;
    static constexpr qsizetype kMaxCellText = 32767;

    // Checks the layout and that expectedRows fit on one sheet; nothing is written yet.
    // After a failure, every later call fails with the same reason.
    [[nodiscard]] Outcome<> begin(const QString& path, WorkbookLayout layout,
                                  qsizetype expectedRows);
    [[nodiscard]] Outcome<> addRow(const CatalogueRecord& record);
    // Leaves the sheet unstyled after all, as a cancelled save does.
    void dropStyle() { m_layout.style.reset(); }
    // Writes the whole workbook to the device; the path only names it in messages.
    [[nodiscard]] Outcome<> finish(QIODevice& device);

    qsizetype rowCount() const { return m_rows.size() - 2; }

private:
    Failure fail(const QString& message);
    BiffRowCells cellsOf(const std::array<const QString*, 4>& texts);
    QByteArray buildGlobals(qsizetype& sheetOffsetAt) const;
    BiffColumnWidths columnWidths(quint16 rowHeight) const;
    static std::optional<QByteArray> compoundFile(const QByteArray& globals,
                                                  const QByteArray& sheet);

    QString m_path;
    WorkbookLayout m_layout;
    BiffSharedStrings m_strings;
    QList<BiffRowCells> m_rows;
    std::array<qsizetype, 4> m_longest{}; // each column's longest text, header included
    QString m_error;                      // the first failure's reason
    bool m_open = false;
};

// A sheet name the spreadsheet accepts: 1 to 31 characters, none of : \ / ? * [ ].
bool isValidSheetName(const QString& name);

} // namespace nubo::database
