// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/WorkbookWriter.h"

#include "database/BiffStyles.h"
#include "database/ByteSink.h"
#include "database/GsfSession.h"

#include <QIODevice>

#include <algorithm>

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-outfile.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-output.h>

namespace nubo::database {
namespace {

constexpr quint16 kBof = 0x0809;
constexpr quint16 kEof = 0x000A;
constexpr quint16 kBoundSheet = 0x0085;

template <typename Fill> void record(QByteArray& stream, quint16 type, Fill fill)
{
    QByteArray data;
    ByteSink sink(data);
    fill(sink);
    appendBiffRecord(stream, type, data);
}

void u16Record(QByteArray& stream, quint16 type, quint32 value)
{
    record(stream, type, [&](ByteSink& s) { s.u16(value); });
}

void appendWorkbookHead(QByteArray& out)
{
    record(out, kBof, [](ByteSink& s) {
        s.u16(0x0600);
        s.u16(0x0005); // workbook globals
        s.u16(0x0DBB);
        s.u16(0x07CC);
        s.u32(0x000000C1);
        s.u32(0x00000006);
    });
    u16Record(out, 0x00E1, 0x04B0); // interface header: UTF-16 code page
    u16Record(out, 0x00C1, 0);      // MMS
    appendBiffRecord(out, 0x00E2, {});
    record(out, 0x005C, [](ByteSink& s) { // write access: the user name, blank-padded
        const QString user = QStringLiteral("Nubo");
        appendBiffString(s, user);
        s.bytes(QByteArray(112 - 3 - user.size(), ' '));
    });
    u16Record(out, 0x0042, 0x04B0); // code page
    u16Record(out, 0x0161, 0);      // not a dual-stream file
    u16Record(out, 0x013D, 1);      // sheet ids
    u16Record(out, 0x009C, 0x000E); // function groups
    u16Record(out, 0x0019, 0);      // window protection
    u16Record(out, 0x0012, 0);      // protection
    u16Record(out, 0x0013, 0);      // password
    u16Record(out, 0x01AF, 0);
    u16Record(out, 0x01BC, 0);
    record(out, 0x003D, [](ByteSink& s) { // window 1
        s.u16(0x0168);
        s.u16(0x001E);
        s.u16(0x3A5C);
        s.u16(0x2328);
        s.u16(0x0038);
        s.u16(0);
        s.u16(0);
        s.u16(1);
        s.u16(0x0258);
    });
    u16Record(out, 0x0040, 0); // backup
    u16Record(out, 0x008D, 0); // show objects
    u16Record(out, 0x0022, 0); // 1900 date system
    u16Record(out, 0x000E, 1); // precision as displayed: off
    u16Record(out, 0x01B7, 0); // refresh all
    u16Record(out, 0x00DA, 0); // save external link values
}

} // namespace

bool isValidSheetName(const QString& name)
{
    static const QString forbidden = QStringLiteral(":\\/?*[]");
    if (name.isEmpty() || name.size() > 31)
        return false;
    for (const QChar c : name) {
        if (forbidden.contains(c))
            return false;
    }
    return true;
}

Failure WorkbookWriter::fail(const QString& message)
{
    m_error = message;
    m_open = false;
    return {message};
}

Outcome<> WorkbookWriter::begin(const QString& path, WorkbookLayout layout, qsizetype expectedRows)
{
    m_path = path;
    m_layout = std::move(layout);
    m_strings = {};
    m_rows.clear();
    m_longest = {};
    m_error.clear();
    if (expectedRows > kMaxDataRows) {
        return fail(QStringLiteral("La hoja admite %1 filas: %2 filas no caben en ella.")
                        .arg(kSheetRows)
                        .arg(expectedRows + 2));
    }
    if (!isValidSheetName(m_layout.sheetName))
        return fail(QStringLiteral("Nombre de hoja no válido: \"%1\".").arg(m_layout.sheetName));
    const CatalogueHeader& h = m_layout.header;
    if (std::any_of(h.begin(), h.end(), [](const QString& t) { return t.size() > kMaxCellText; }))
        return fail(QStringLiteral("Un título de columna es demasiado largo."));
    m_rows.reserve(expectedRows + 2);
    m_rows.append(cellsOf({&h[0], &h[1], &h[2], &h[3]}));
    m_rows.append({kNoText, kNoText, kNoText, kNoText}); // row 2 stays empty: data starts at row 3
    m_open = true;
    return {};
}

BiffRowCells WorkbookWriter::cellsOf(const std::array<const QString*, 4>& texts)
{
    BiffRowCells cells;
    for (int c = 0; c < 4; ++c) {
        cells[c] = texts[c]->isEmpty() ? kNoText : m_strings.add(*texts[c]);
        m_longest[c] = std::max(m_longest[c], texts[c]->size());
    }
    return cells;
}

// Wide enough for each column's longest text in the sheet's font (its rows' height tells the
// font's size against the default 10-point rows), between 10 and 60 characters.
BiffColumnWidths WorkbookWriter::columnWidths(quint16 rowHeight) const
{
    BiffColumnWidths widths;
    for (int c = 0; c < 4; ++c) {
        const qsizetype characters = std::clamp<qsizetype>(m_longest[c], 10, 60) + 2;
        widths[c] = quint16(std::min<qsizetype>(characters * 256 * rowHeight / 255, 0xFF00));
    }
    return widths;
}

Outcome<> WorkbookWriter::addRow(const CatalogueRecord& r)
{
    if (!m_open)
        return Failure{m_error};
    if (m_rows.size() >= kSheetRows)
        return fail(
            QStringLiteral("La hoja admite %1 filas y la lista tiene más.").arg(kSheetRows));
    for (int c = 0; c < 4; ++c) {
        if (r.field(c).size() > kMaxCellText) {
            return fail(QStringLiteral("El texto de la fila %1 tiene más de %2 caracteres.")
                            .arg(m_rows.size() - 1)
                            .arg(kMaxCellText));
        }
    }
    m_rows.append(cellsOf({&r.nombre, &r.direccion, &r.origen, &r.formato}));
    return {};
}

QByteArray WorkbookWriter::buildGlobals(qsizetype& sheetOffsetAt) const
{
    QByteArray out;
    appendWorkbookHead(out);
    BiffStyles(m_layout.style).appendRecords(out);
    u16Record(out, 0x0160, 1); // natural language formulas
    record(out, kBoundSheet, [&](ByteSink& s) {
        sheetOffsetAt = out.size() + 4;
        s.u32(0); // patched: where the sheet's substream starts
        s.u8(0);  // visible
        s.u8(0);  // worksheet
        appendShortBiffString(s, m_layout.sheetName);
    });
    record(out, 0x008C, [](ByteSink& s) { // country
        s.u16(1);
        s.u16(34);
    });
    m_strings.appendRecords(out);
    appendBiffRecord(out, kEof, {});
    return out;
}

Outcome<> WorkbookWriter::finish(QIODevice& device)
{
    if (!m_open)
        return Failure{m_error};
    m_open = false;
    qsizetype sheetOffsetAt = 0;
    QByteArray globals = buildGlobals(sheetOffsetAt);
    ByteSink::put32(globals, sheetOffsetAt, quint32(globals.size()));
    const BiffCellLook look = BiffStyles(m_layout.style).cellLook();
    const QByteArray sheet =
        buildWorksheet(quint32(globals.size()), m_rows, look, columnWidths(look.rowHeight));
    const std::optional<QByteArray> file = compoundFile(globals, sheet);
    if (!file)
        return fail(QStringLiteral("No se pudo componer el archivo %1.").arg(m_path));
    if (device.write(*file) != file->size())
        return fail(QStringLiteral("No se puede escribir en el archivo %1: %2")
                        .arg(m_path, device.errorString()));
    return {};
}

// The container is built in memory: the file itself is written only through the device.
std::optional<QByteArray> WorkbookWriter::compoundFile(const QByteArray& globals,
                                                       const QByteArray& sheet)
{
    ensureGsf();
    GsfOutput* sink = gsf_output_memory_new();
    GsfOutfile* container = gsf_outfile_msole_new(sink);
    GsfOutput* stream = gsf_outfile_new_child(container, "Workbook", FALSE);
    bool ok = gsf_output_write(stream, size_t(globals.size()),
                               reinterpret_cast<const guint8*>(globals.constData())) &&
              gsf_output_write(stream, size_t(sheet.size()),
                               reinterpret_cast<const guint8*>(sheet.constData()));
    ok = gsf_output_close(stream) && ok;
    g_object_unref(stream);
    ok = gsf_output_close(GSF_OUTPUT(container)) && ok;
    g_object_unref(container);
    if (!gsf_output_is_closed(sink))
        ok = gsf_output_close(sink) && ok;
    std::optional<QByteArray> bytes;
    if (ok)
        bytes = QByteArray(
            reinterpret_cast<const char*>(gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(sink))),
            qsizetype(gsf_output_size(sink)));
    g_object_unref(sink);
    return bytes;
}

} // namespace nubo::database
