// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/DiscRecord.h"
#include "database/BiffSheet.h"
#include "database/BiffStrings.h"
#include "database/CatalogueRecord.h"
#include "database/LocalDateTexts.h"
#include "database/SheetStyle.h"
#include "platform/Outcome.h"

#include <QIODevice>

#include <array>
#include <optional>

namespace nubo::database {

// What a saved workbook looks like apart from its rows.
struct WorkbookLayout
{
    QString sheetName = QStringLiteral("Colección");
    CatalogueHeader header = defaultCatalogueHeader();
    std::optional<SheetStyle> style; // none: the sheet is left unstyled
    QList<core::DiscRecord> discs = {};
};

// Writes a catalogue workbook, row by row: the catalogue's sheet (captions in row 1, row 2
// empty, data from row 3: the four stored columns, then the file details with the size as a
// number), then the "Discos" sheet laid out alike with one row per disc record. Rows are kept
// as shared-string indices until finish() writes the file, so the writer can be finished after
// any row and the file then holds exactly the rows added so far.
class WorkbookWriter final
{
public:
    static constexpr qsizetype kSheetRows = 65536;
    static constexpr qsizetype kMaxDataRows = kSheetRows - 2;
    static constexpr qsizetype kMaxCellText = 32767;

    // Checks the layout and that expectedRows (and the disc records) fit on a sheet; nothing is
    // written yet. After a failure, every later call fails with the same reason.
    [[nodiscard]] Outcome<> begin(const QString& path, WorkbookLayout layout,
                                  qsizetype expectedRows);
    [[nodiscard]] Outcome<> addRow(const CatalogueRecord& record);
    // Leaves the sheets unstyled after all, as a cancelled save does.
    void dropStyle() { m_layout.style.reset(); }
    // Writes the whole workbook to the device; the path only names it in messages.
    [[nodiscard]] Outcome<> finish(QIODevice& device);

    qsizetype rowCount() const { return m_rows.grid.rowCount() - 2; }

private:
    // A sheet being filled: its cells and each column's widest value, header included.
    struct Sheet
    {
        BiffGrid grid;
        QList<qsizetype> longest;
    };

    Failure fail(const QString& message);
    void startSheet(Sheet& sheet, const QStringList& captions);
    void addText(Sheet& sheet, const QString& text);
    void addSize(Sheet& sheet, qint64 bytes);
    [[nodiscard]] Outcome<> addDiscs();
    QByteArray buildGlobals(std::array<qsizetype, 2>& sheetOffsetsAt) const;
    static BiffColumnWidths columnWidths(const Sheet& sheet, quint16 rowHeight);
    static std::optional<QByteArray> compoundFile(const QByteArray& globals,
                                                  const QByteArray& sheets);

    QString m_path;
    WorkbookLayout m_layout;
    BiffSharedStrings m_strings;
    Sheet m_rows;
    Sheet m_discs;
    LocalDateTexts m_dates;
    QString m_error; // the first failure's reason
    bool m_open = false;
};

// A sheet name the spreadsheet accepts: 1 to 31 characters, none of : \ / ? * [ ].
bool isValidSheetName(const QString& name);

} // namespace nubo::database
