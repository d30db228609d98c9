#pragma once

#include "database/CatalogueRecord.h"

#include <QString>

namespace nubo::database {

// Reads a catalogue workbook: the first sheet's name and its rows from row 3 to the last used
// row, every cell as the text a spreadsheet shows. Works on a path: the reading library opens
// files by name only.
class WorkbookReader final
{
public:
    WorkbookReader() = default;
    ~WorkbookReader();
    WorkbookReader(const WorkbookReader&) = delete;
    WorkbookReader& operator=(const WorkbookReader&) = delete;

    bool open(const QString& path);
    void close();

    QString sheetName() const { return m_sheetName; }
    // The sheet's last used row, counted from 1 (0 for an empty sheet).
    quint32 lastRow() const { return m_rows; }
    // Rows 3..lastRow() as records; row is counted from 1.
    CatalogueRecord record(quint32 row) const;
    QString errorString() const { return m_error; }

private:
    bool fail(const QString& message);
    QString cellText(quint32 row, quint16 column) const;

    const void* m_handle = nullptr;
    QString m_sheetName;
    quint32 m_rows = 0;
    quint16 m_columns = 0;
    QString m_error;
};

// A number as the spreadsheet's General format shows it in a cell.
QString generalNumberText(double value);

} // namespace nubo::database
