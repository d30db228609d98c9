// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace nubo::database {

// A column of the first sheet beyond the four a catalogue stores: its number counted from 1
// (5 is column E) and the text of its row 1, which may be empty.
struct ExtraColumn
{
    int number = 0;
    QString caption;
};

// What an existing workbook holds that a catalogue save would not write again: sheets after
// the first that hold cells, and cells of the first sheet beyond column D. Empty sheets (a new
// workbook's "Hoja2" and "Hoja3"), cells that hold only formatting, columns captioned as a file
// detail (TAMAÑO, ARTISTA...) and the disc records' sheet do not count.
struct WorkbookExtras
{
    QStringList sheets;
    QList<ExtraColumn> columns;

    bool isEmpty() const { return sheets.isEmpty() && columns.isEmpty(); }
};

// A light read of the workbook at path (Excel 97 or Excel 5/95 records, as laid out in
// the [MS-XLS] format documentation): nothing when it is no workbook it can read.
std::optional<WorkbookExtras> surveyWorkbook(const QString& path);
std::optional<WorkbookExtras> surveyWorkbookBytes(const QByteArray& file);

} // namespace nubo::database
