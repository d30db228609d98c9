#pragma once

// Builds small workbooks record by record, in Excel 97 or Excel 5 form, and wraps streams in
// compound files, so readers meet what other producers write.
#include "database/BiffStrings.h"
#include "database/ByteSink.h"

#include <QByteArray>
#include <QList>
#include <QString>
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

} // namespace nubo::database::test
