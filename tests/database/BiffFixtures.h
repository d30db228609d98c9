// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// Builds small workbooks record by record, in Excel 97 or Excel 5 form, and wraps streams in
// compound files, so readers meet what other producers write.
#include "database/BiffStrings.h"
#include "database/BiffWorkbookParser.h"
#include "database/ByteSink.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QtEndian>

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>

namespace nubo::database::test {

template <typename Fill> void biffRecord(QByteArray& stream, quint16 type, Fill fill)
{
    QByteArray data;
    ByteSink sink(data);
    fill(sink);
    appendBiffRecord(stream, type, data);
}

inline void biffBof(QByteArray& stream, quint16 version, quint16 kind)
{
    biffRecord(stream, 0x0809, [&](ByteSink& s) {
        s.u16(version);
        s.u16(kind);
        s.zeros(version == 0x0600 ? 12 : 4);
    });
}

inline void biffEof(QByteArray& stream)
{
    appendBiffRecord(stream, 0x000A, {});
}

inline void biffCellHead(ByteSink& s, quint16 row, quint16 column)
{
    s.u16(row);
    s.u16(column);
    s.u16(15);
}

// A text in Windows-1252 with a two-byte length, as Excel 5 writes LABEL and STRING texts.
inline void appendAnsiText(ByteSink& s, const QByteArray& bytes)
{
    s.u16(quint32(bytes.size()));
    s.bytes(bytes);
}

// A workbook stream with one sheet: the globals' extra records (code page, shared strings),
// then the sheet's cell records. version is 0x0600 (Excel 97) or 0x0500 (Excel 5/95).
inline QByteArray biffWorkbook(quint16 version, const QByteArray& sheetName,
                               const QByteArray& globalsRecords, const QByteArray& cells)
{
    QByteArray stream;
    biffBof(stream, version, 0x0005);
    stream += globalsRecords;
    for (int i = 0; i <= 15; ++i) // cell formats up to the one the cells use, all General
        biffRecord(stream, 0x00E0, [&](ByteSink& s) { s.zeros(version == 0x0600 ? 20 : 16); });
    qsizetype offsetAt = 0;
    biffRecord(stream, 0x0085, [&](ByteSink& s) {
        offsetAt = stream.size() + 4;
        s.u32(0);
        s.u16(0);
        if (version == 0x0600) {
            appendShortBiffString(s, QString::fromLatin1(sheetName));
        } else {
            s.u8(quint32(sheetName.size()));
            s.bytes(sheetName);
        }
    });
    biffEof(stream);
    ByteSink::put32(stream, offsetAt, quint32(stream.size()));
    biffBof(stream, version, 0x0010);
    stream += cells;
    biffEof(stream);
    return stream;
}

// A sheet's rows of cells: a QString is a text, a double a number, anything else no cell.
using SheetRows = QList<QVariantList>;

// An Excel 97 workbook stream with the given sheets, in order.
inline QByteArray biffSheets(const QList<std::pair<QString, SheetRows>>& sheets)
{
    QByteArray stream;
    biffBof(stream, 0x0600, 0x0005);
    for (int i = 0; i <= 15; ++i)
        biffRecord(stream, 0x00E0, [](ByteSink& s) { s.zeros(20); });
    QList<qsizetype> offsetsAt;
    for (const auto& sheet : sheets) {
        biffRecord(stream, 0x0085, [&](ByteSink& s) {
            offsetsAt.append(stream.size() + 4);
            s.u32(0);
            s.u16(0);
            appendShortBiffString(s, sheet.first);
        });
    }
    biffEof(stream);
    for (qsizetype k = 0; k < sheets.size(); ++k) {
        ByteSink::put32(stream, offsetsAt.at(k), quint32(stream.size()));
        biffBof(stream, 0x0600, 0x0010);
        const SheetRows& rows = sheets.at(k).second;
        for (int r = 0; r < rows.size(); ++r) {
            for (int c = 0; c < rows.at(r).size(); ++c) {
                const QVariant& cell = rows.at(r).at(c);
                if (cell.typeId() == QMetaType::QString) {
                    biffRecord(stream, 0x0204, [&](ByteSink& s) {
                        biffCellHead(s, quint16(r), quint16(c));
                        appendBiffString(s, cell.toString());
                    });
                } else if (cell.typeId() == QMetaType::Double) {
                    biffRecord(stream, 0x0203, [&](ByteSink& s) {
                        biffCellHead(s, quint16(r), quint16(c));
                        s.f64(cell.toDouble());
                    });
                }
            }
        }
        biffEof(stream);
    }
    return stream;
}

// A compound file holding the given streams, in order, as libgsf lays them out.
inline QByteArray compoundFile(const QList<std::pair<const char*, QByteArray>>& streams)
{
    gsf_init();
    GsfOutput* memory = gsf_output_memory_new();
    GsfOutfile* container = gsf_outfile_msole_new(memory);
    for (const auto& [name, bytes] : streams) {
        GsfOutput* stream = gsf_outfile_new_child(container, name, FALSE);
        gsf_output_write(stream, size_t(bytes.size()),
                         reinterpret_cast<const guint8*>(bytes.constData()));
        gsf_output_close(stream);
        g_object_unref(stream);
    }
    gsf_output_close(GSF_OUTPUT(container));
    g_object_unref(container);
    const QByteArray file(
        reinterpret_cast<const char*>(gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(memory))),
        qsizetype(gsf_output_size(memory)));
    g_object_unref(memory);
    return file;
}

// The file with its root entry's size (the small-stream container's) set to 0, as some
// producers write it while their small sectors are in use.
inline QByteArray withEmptySmallStreamSize(QByteArray file)
{
    const qsizetype rootAt =
        (qsizetype(qFromLittleEndian<quint32>(file.constData() + 0x30)) + 1) * 512;
    ByteSink::put32(file, rootAt + 0x78, 0);
    return file;
}

// A sheet made elsewhere: captions in row 1 and data from row 2, texts as shared strings and
// the last column a number.
inline QByteArray sharedStringSheet(int dataRows)
{
    QByteArray sst;
    biffRecord(sst, 0x00FC, [&](ByteSink& s) {
        s.u32(quint32(4 + 2 * dataRows));
        s.u32(quint32(4 + 2 * dataRows));
        for (const char* caption : {"NOMBRE", "DIRECCION", "ORIGEN", "FORMATO"})
            appendBiffString(s, QString::fromLatin1(caption));
        for (int i = 0; i < dataRows; ++i) {
            appendBiffString(s, QStringLiteral("Canción %1.mp3").arg(i));
            appendBiffString(s, QStringLiteral("/Música/Ñandú %1/").arg(i));
        }
    });
    QByteArray cells;
    for (quint16 c = 0; c < 4; ++c) {
        biffRecord(cells, 0x00FD, [&](ByteSink& s) {
            biffCellHead(s, 0, c);
            s.u32(c);
        });
    }
    for (int i = 0; i < dataRows; ++i) {
        for (quint16 c = 0; c < 2; ++c) {
            biffRecord(cells, 0x00FD, [&](ByteSink& s) {
                biffCellHead(s, quint16(1 + i), c);
                s.u32(quint32(4 + 2 * i + c));
            });
        }
        biffRecord(cells, 0x0203, [&](ByteSink& s) {
            biffCellHead(s, quint16(1 + i), 3);
            s.f64(128 + i / 4.0);
        });
    }
    return biffWorkbook(0x0600, "Hoja1", sst, cells);
}

inline QList<QStringList> sharedStringCells(int dataRows)
{
    QList<QStringList> rows{{"NOMBRE", "DIRECCION", "ORIGEN", "FORMATO"}};
    for (int i = 0; i < dataRows; ++i) {
        rows.append({QStringLiteral("Canción %1.mp3").arg(i),
                     QStringLiteral("/Música/Ñandú %1/").arg(i), QString(),
                     generalNumberText(128 + i / 4.0)});
    }
    return rows;
}

// An Excel 5 catalogue in Windows-1252: row 2 empty, accented texts and numbers below.
inline QByteArray excel5Catalogue()
{
    QByteArray globals;
    biffRecord(globals, 0x0042, [](ByteSink& s) { s.u16(1252); });
    QByteArray cells;
    const QList<QList<QByteArray>> texts = {
        {"NOMBRE", "DIRECCION", "ORIGEN", "FORMATO"},
        {},
        {"Canci\xf3n de cuna.mp3", "/M\xfasica/\xc1lbum/", "=grupo"},
        {"Ni\xf1o \x80.ogg", "/M\xfasica/"}};
    for (int r = 0; r < texts.size(); ++r) {
        for (int c = 0; c < texts.at(r).size(); ++c) {
            biffRecord(cells, 0x0204, [&](ByteSink& s) {
                biffCellHead(s, quint16(r), quint16(c));
                appendAnsiText(s, texts.at(r).at(c));
            });
        }
    }
    biffRecord(cells, 0x027E, [](ByteSink& s) { // RK 1999
        biffCellHead(s, 2, 3);
        s.u32((1999u << 2) | 2);
    });
    biffRecord(cells, 0x0203, [](ByteSink& s) {
        biffCellHead(s, 3, 2);
        s.f64(3.5);
    });
    return biffWorkbook(0x0500, "Canci\xf3n", globals, cells);
}

inline QList<QStringList> excel5Cells()
{
    return {
        {"NOMBRE", "DIRECCION", "ORIGEN", "FORMATO"},
        {"", "", "", ""},
        {QStringLiteral("Canción de cuna.mp3"), QStringLiteral("/Música/Álbum/"), "=grupo", "1999"},
        {QStringLiteral("Niño €.ogg"), QStringLiteral("/Música/"), "3.5", ""}};
}

} // namespace nubo::database::test
