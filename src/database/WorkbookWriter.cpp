// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/WorkbookWriter.h"

#include "database/BiffStyles.h"
#include "database/ByteSink.h"
#include "database/GsfSession.h"
#include "database/SheetCaptions.h"

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
    u16Record(out, 0x0042, 0x04B0);       // code page
    u16Record(out, 0x0161, 0);            // not a dual-stream file
    record(out, 0x013D, [](ByteSink& s) { // sheet ids: the catalogue's and the discs'
        s.u16(1);
        s.u16(2);
    });
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
    m_rows = {};
    m_discs = {};
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
    m_rows.grid.cells.reserve((expectedRows + 2) * (4 + core::kDetailFieldCount));
    startSheet(m_rows, QStringList(h.begin(), h.end()) + core::detailCaptions());
    m_open = true;
    return addDiscs();
}

// Row 1 holds the captions and row 2 stays empty: data starts at row 3.
void WorkbookWriter::startSheet(Sheet& sheet, const QStringList& captions)
{
    sheet.grid.columns = int(captions.size());
    sheet.longest = QList<qsizetype>(captions.size(), 0);
    for (const QString& caption : captions)
        addText(sheet, caption);
    sheet.grid.cells.append(QList<BiffCell>(captions.size()));
}

void WorkbookWriter::addText(Sheet& sheet, const QString& text)
{
    const auto column = sheet.grid.cells.size() % sheet.grid.columns;
    sheet.longest[column] = std::max(sheet.longest[column], text.size());
    sheet.grid.cells.append({0, text.isEmpty() ? kNoText : m_strings.add(text), false});
}

// A size is a number, exact up to 2^53 bytes; an unknown one leaves the cell empty.
void WorkbookWriter::addSize(Sheet& sheet, qint64 bytes)
{
    const auto column = sheet.grid.cells.size() % sheet.grid.columns;
    if (bytes < 0) {
        sheet.grid.cells.append(BiffCell{});
        return;
    }
    sheet.longest[column] = std::max(sheet.longest[column], QString::number(bytes).size());
    sheet.grid.cells.append({double(bytes), kNoText, true});
}

Outcome<> WorkbookWriter::addDiscs()
{
    startSheet(m_discs, core::discCaptions());
    if (m_layout.discs.size() > kMaxDataRows)
        return fail(QStringLiteral("La hoja %1 admite %2 filas y hay %3 discos.")
                        .arg(discsSheetNameBeside(m_layout.sheetName))
                        .arg(kSheetRows)
                        .arg(m_layout.discs.size()));
    for (const core::DiscRecord& disc : m_layout.discs) {
        for (int f = 0; f < core::kDiscFieldCount; ++f) {
            const auto field = core::DiscField(f);
            if (field == core::DiscField::Capacidad || field == core::DiscField::Libre) {
                addSize(m_discs, field == core::DiscField::Capacidad ? disc.capacidad : disc.libre);
                continue;
            }
            const QString text = disc.text(field);
            if (text.size() > kMaxCellText)
                return fail(QStringLiteral("El texto del disco %1 tiene más de %2 caracteres.")
                                .arg(disc.origen.left(80))
                                .arg(kMaxCellText));
            addText(m_discs, text);
        }
    }
    return {};
}

// Wide enough for each column's longest value in the sheet's font (its rows' height tells the
// font's size against the default 10-point rows), between 10 and 60 characters.
BiffColumnWidths WorkbookWriter::columnWidths(const Sheet& sheet, quint16 rowHeight)
{
    BiffColumnWidths widths;
    for (const qsizetype longest : sheet.longest) {
        const qsizetype characters = std::clamp<qsizetype>(longest, 10, 60) + 2;
        widths.append(quint16(std::min<qsizetype>(characters * 256 * rowHeight / 255, 0xFF00)));
    }
    return widths;
}

Outcome<> WorkbookWriter::addRow(const CatalogueRecord& r)
{
    if (!m_open)
        return Failure{m_error};
    if (m_rows.grid.rowCount() >= kSheetRows)
        return fail(
            QStringLiteral("La hoja admite %1 filas y la lista tiene más.").arg(kSheetRows));
    const core::FileDetails& d = r.details;
    for (const QString* text : {&r.nombre, &r.direccion, &r.origen, &r.formato, &d.title, &d.artist,
                                &d.album, &d.genre}) {
        if (text->size() > kMaxCellText) {
            return fail(QStringLiteral("El texto de la fila %1 tiene más de %2 caracteres.")
                            .arg(m_rows.grid.rowCount() - 1)
                            .arg(kMaxCellText));
        }
    }
    for (int c = 0; c < 4; ++c)
        addText(m_rows, r.field(c));
    addSize(m_rows, d.size);
    addText(m_rows, m_dates.text(d.modified));
    for (int f = int(core::DetailField::Titulo); f < core::kDetailFieldCount; ++f)
        addText(m_rows, d.text(core::DetailField(f)));
    return {};
}

QByteArray WorkbookWriter::buildGlobals(std::array<qsizetype, 2>& sheetOffsetsAt) const
{
    QByteArray out;
    appendWorkbookHead(out);
    BiffStyles(m_layout.style).appendRecords(out);
    u16Record(out, 0x0160, 1); // natural language formulas
    const std::array<QString, 2> names = {m_layout.sheetName,
                                          discsSheetNameBeside(m_layout.sheetName)};
    for (int s = 0; s < 2; ++s) {
        record(out, kBoundSheet, [&](ByteSink& sink) {
            sheetOffsetsAt[s] = out.size() + 4;
            sink.u32(0); // patched: where the sheet's substream starts
            sink.u8(0);  // visible
            sink.u8(0);  // worksheet
            appendShortBiffString(sink, names[s]);
        });
    }
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
    std::array<qsizetype, 2> sheetOffsetsAt{};
    QByteArray globals = buildGlobals(sheetOffsetsAt);
    const BiffCellLook look = BiffStyles(m_layout.style).cellLook();
    ByteSink::put32(globals, sheetOffsetsAt[0], quint32(globals.size()));
    QByteArray sheets = buildWorksheet(quint32(globals.size()), m_rows.grid, look,
                                       columnWidths(m_rows, look.rowHeight), true);
    const auto discsAt = quint32(globals.size() + sheets.size());
    ByteSink::put32(globals, sheetOffsetsAt[1], discsAt);
    sheets +=
        buildWorksheet(discsAt, m_discs.grid, look, columnWidths(m_discs, look.rowHeight), false);
    const std::optional<QByteArray> file = compoundFile(globals, sheets);
    if (!file)
        return fail(QStringLiteral("No se pudo componer el archivo %1.").arg(m_path));
    if (device.write(*file) != file->size())
        return fail(QStringLiteral("No se puede escribir en el archivo %1: %2")
                        .arg(m_path, device.errorString()));
    return {};
}

// The container is built in memory: the file itself is written only through the device.
std::optional<QByteArray> WorkbookWriter::compoundFile(const QByteArray& globals,
                                                       const QByteArray& sheets)
{
    ensureGsf();
    GsfOutput* sink = gsf_output_memory_new();
    GsfOutfile* container = gsf_outfile_msole_new(sink);
    GsfOutput* stream = gsf_outfile_new_child(container, "Workbook", FALSE);
    bool ok = gsf_output_write(stream, size_t(globals.size()),
                               reinterpret_cast<const guint8*>(globals.constData())) &&
              gsf_output_write(stream, size_t(sheets.size()),
                               reinterpret_cast<const guint8*>(sheets.constData()));
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
