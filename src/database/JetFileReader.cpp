// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/JetFileReader.h"

#include "database/DatabaseReader.h"
#include "database/JetValueText.h"

#include <QSet>

#include <cstring>

namespace nubo::database::jet {
namespace {

constexpr qsizetype kPage = 4096;
constexpr quint32 kCatalogPage = 2;
constexpr quint8 kDataPage = 0x01;
constexpr quint8 kDefinitionPage = 0x02;
constexpr quint16 kOffsetMask = 0x1FFF;
constexpr quint16 kLookupRow = 0x4000;
constexpr quint16 kDeletedRow = 0x8000;
constexpr int kColumnEntry = 25;
constexpr int kRealIndexEntry = 12;
constexpr int kMaxDefinitionPages = 64;
constexpr quint32 kTableObject = 1;
constexpr quint32 kSystemObjectFlags = 0x80000002u;
// Table definition fields (mdbtools' HACKING, "TDEF"): the record count and the usage maps.
constexpr qsizetype kDefRowCount = 16;
constexpr qsizetype kDefUsedPages = 55;
// Usage maps (same source, "Page Usage Maps"): an inline map gives its first page and a bitmap;
// a reference map lists bitmap pages, each covering kMapPageBits pages after a 4-byte header.
constexpr quint8 kInlineMap = 0;
constexpr quint8 kReferenceMap = 1;
constexpr qsizetype kMapPageHeader = 4;
constexpr quint32 kMapPageBits = quint32(kPage - kMapPageHeader) * 8;
// Column types read as text (mdbtools' HACKING, "Column Types").
constexpr quint8 kTypeText = 0x0A;
constexpr quint8 kTypeMemo = 0x0C;
// A memo field (same source, "LVAL"): a 12-byte header whose length word's top bits say where
// the text is: right after the header, in one row elsewhere, or in a chain of rows each
// starting with the address of the next.
constexpr qsizetype kMemoHeader = 12;
constexpr quint32 kMemoInline = 0x80000000u;
constexpr quint32 kMemoOneRow = 0x40000000u;
constexpr quint32 kMemoLengthMask = 0x3FFFFFFFu;
constexpr int kMaxMemoRows = 1024;

quint32 u8At(QByteArrayView d, qsizetype at)
{
    return at >= 0 && at < d.size() ? quint8(d[at]) : 0;
}

quint32 u16At(QByteArrayView d, qsizetype at)
{
    return u8At(d, at) | (u8At(d, at + 1) << 8);
}

quint32 u32At(QByteArrayView d, qsizetype at)
{
    return u16At(d, at) | (u16At(d, at + 2) << 16);
}

bool inside(QByteArrayView d, qsizetype at, qsizetype size)
{
    return at >= 0 && size >= 0 && at + size <= d.size();
}

} // namespace

JetFileReader::JetFileReader(QByteArray file) : JetFileReader(QList<QByteArray>{std::move(file)}) {}

JetFileReader::JetFileReader(QList<QByteArray> blocks) : m_pages(std::move(blocks))
{
    const QByteArrayView head = m_pages.head();
    if (!looksLikeJetDatabase(
            head.first(std::min<qsizetype>(kPage * 2, head.size())).toByteArray()))
        m_kind = Kind::NotJet;
    else if (u8At(head, 0x14) == 0 || m_pages.size() < kPage * 3)
        m_kind = u8At(head, 0x14) == 0 ? Kind::OlderJet : Kind::NotJet;
    else
        m_kind = Kind::Jet4;
}

QByteArrayView JetFileReader::page(quint32 number) const
{
    return m_kind == Kind::Jet4 ? m_pages.page(number) : QByteArrayView();
}

QByteArray JetFileReader::definition(quint32 firstPage) const
{
    QByteArray bytes;
    QSet<quint32> seen;
    for (quint32 p = firstPage; p != 0 && !seen.contains(p) && seen.size() < kMaxDefinitionPages;
         p = u32At(page(p), 4)) {
        const QByteArrayView d = page(p);
        if (d.isEmpty() || u8At(d, 0) != kDefinitionPage)
            break;
        seen.insert(p);
        bytes += bytes.isEmpty() ? d : d.sliced(8); // continuation pages repeat no header
    }
    return bytes;
}

std::optional<TableInfo> JetFileReader::table(quint32 definitionPage) const
{
    const QByteArray d = definition(definitionPage);
    if (d.size() < 63)
        return std::nullopt;
    TableInfo info;
    info.definitionPage = definitionPage;
    info.rowCount = u32At(d, kDefRowCount);
    info.usedPagesMap = u32At(d, kDefUsedPages);
    const quint32 columns = u16At(d, 45);
    qsizetype at = 63 + qsizetype(u32At(d, 51)) * kRealIndexEntry;
    if (!inside(d, at, qsizetype(columns) * kColumnEntry))
        return std::nullopt;
    for (quint32 c = 0; c < columns; ++c, at += kColumnEntry) {
        ColumnInfo column;
        column.type = quint8(u8At(d, at));
        column.number = quint16(u16At(d, at + 5));
        column.varIndex = quint16(u16At(d, at + 7));
        column.fixed = (u8At(d, at + 15) & 0x01) != 0;
        column.fixedOffset = quint16(u16At(d, at + 21));
        column.size = quint16(u16At(d, at + 23));
        info.columns.append(column);
    }
    for (ColumnInfo& column : info.columns) {
        const qsizetype length = u16At(d, at);
        if (!inside(d, at + 2, length))
            return std::nullopt;
        column.name = decodeJetText(d.constData() + at + 2, length);
        at += 2 + length;
    }
    // Stored in definition order; the row layout and the fields follow column numbers.
    std::stable_sort(info.columns.begin(), info.columns.end(),
                     [](const ColumnInfo& a, const ColumnInfo& b) { return a.number < b.number; });
    return info;
}

QByteArrayView JetFileReader::rowOf(quint32 pageNumber, quint32 row, int hops) const
{
    const QByteArrayView d = page(pageNumber);
    const quint32 rows = u16At(d, 12);
    if (d.isEmpty() || u8At(d, 0) != kDataPage || row >= rows || !inside(d, 14, rows * 2))
        return {};
    const quint32 entry = u16At(d, 14 + 2 * row);
    const qsizetype start = entry & kOffsetMask;
    const qsizetype end = row == 0 ? kPage : (u16At(d, 14 + 2 * (row - 1)) & kOffsetMask);
    if ((entry & kDeletedRow) != 0 || start < 14 + 2 * qsizetype(rows) || end <= start ||
        end > d.size())
        return {};
    const QByteArrayView data = d.sliced(start, end - start);
    if ((entry & kLookupRow) == 0)
        return data;
    // The row lives elsewhere; follow one pointer, never a chain.
    if (hops > 0 || data.size() < 4)
        return {};
    return rowOf(u32At(data, 0) >> 8, u8At(data, 0), hops + 1);
}

QList<QString> JetFileReader::fields(const TableInfo& table, QByteArrayView row) const
{
    QList<QString> values(table.columns.size());
    const qsizetype maskSize = (u16At(row, 0) + 7) / 8;
    const qsizetype maskAt = row.size() - maskSize;
    const quint32 varCount = u16At(row, maskAt - 2);
    if (row.size() < 2 || maskAt < 4)
        return values;
    for (qsizetype i = 0; i < table.columns.size(); ++i) {
        const ColumnInfo& c = table.columns.at(i);
        const bool present = (u8At(row, maskAt + c.number / 8) & (1u << (c.number % 8))) != 0;
        if (c.number / 8 >= maskSize || !present)
            continue; // null (or a false boolean)
        if (c.type == 0x01) {
            values[i] = QStringLiteral("1");
        } else if (c.fixed) {
            if (inside(row, 2 + c.fixedOffset, c.size))
                values[i] = fixedValueText(c.type, row.sliced(2 + c.fixedOffset, c.size));
        } else if (c.varIndex < varCount) {
            const qsizetype entry = maskAt - 4 - 2 * qsizetype(c.varIndex);
            const qsizetype from = u16At(row, entry);
            const qsizetype to = u16At(row, entry - 2);
            if (entry - 2 < 0 || from > to || !inside(row, from, to - from))
                continue;
            if (c.type == kTypeText)
                values[i] = decodeJetText(row.constData() + from, to - from);
            else if (c.type == kTypeMemo)
                values[i] = memoText(row.sliced(from, to - from));
        }
    }
    return values;
}

QString JetFileReader::memoText(QByteArrayView field) const
{
    const quint32 word = u32At(field, 0);
    const qsizetype length = word & kMemoLengthMask;
    if (field.size() < kMemoHeader)
        return {};
    if ((word & kMemoInline) != 0) {
        const QByteArrayView text = field.sliced(kMemoHeader);
        return decodeJetText(text.constData(), std::min(length, text.size()));
    }
    QByteArray bytes;
    quint32 next = u32At(field, 4);
    const bool oneRow = (word & kMemoOneRow) != 0;
    for (int hop = 0; next != 0 && hop < kMaxMemoRows && bytes.size() < length; ++hop) {
        const QByteArrayView row = rowOf(next >> 8, next & 0xFF);
        if (oneRow || row.size() < 4) {
            bytes += row;
            break;
        }
        bytes += row.sliced(4);
        next = u32At(row, 0);
    }
    return decodeJetText(bytes.constData(), std::min(length, bytes.size()));
}

bool JetFileReader::ownsPage(const TableInfo& table, quint32 number) const
{
    const QByteArrayView d = page(number);
    return u8At(d, 0) == kDataPage && u32At(d, 4) == table.definitionPage;
}

// The blocks holding nothing but the table's data pages, none of them the target of a row
// stored elsewhere (which is read from the page that points to it).
QList<bool> JetFileReader::freeableBlocks(const TableInfo& table) const
{
    QList<bool> freeable(m_pages.blockCount(), true);
    for (quint32 p = 0; p < m_pages.pageCount(); ++p) {
        if (!ownsPage(table, p)) {
            freeable[m_pages.blockOf(p)] = false;
            continue;
        }
        const QByteArrayView d = page(p);
        for (quint32 r = 0, rows = u16At(d, 12); r < rows; ++r) {
            const quint32 entry = u16At(d, 14 + 2 * r);
            const qsizetype start = entry & kOffsetMask;
            if ((entry & kLookupRow) != 0 && inside(d, start, 4)) {
                const qsizetype target = m_pages.blockOf(u32At(d, start) >> 8);
                if (target < freeable.size())
                    freeable[target] = false;
            }
        }
    }
    return freeable;
}

void JetFileReader::forEachRow(const TableInfo& table,
                               const std::function<bool(const QList<QString>&)>& visit, Walk walk)
{
    const bool lastFirst = walk != Walk::FileOrder;
    const QList<bool> freeable =
        walk == Walk::LastFirstFreeing ? freeableBlocks(table) : QList<bool>();
    const auto pages = qint64(m_pages.pageCount());
    const int step = lastFirst ? -1 : 1;
    for (qint64 p = lastFirst ? pages - 1 : 1; p >= 1 && p < pages; p += step) {
        const qsizetype block = m_pages.blockOf(quint32(p));
        if (ownsPage(table, quint32(p))) {
            const qint64 rows = u16At(page(quint32(p)), 12);
            for (qint64 r = lastFirst ? rows - 1 : 0; r >= 0 && r < rows; r += step) {
                const QByteArrayView row = rowOf(quint32(p), quint32(r));
                if (!row.isEmpty() && !visit(fields(table, row)))
                    return;
            }
        }
        if (quint32(p) == m_pages.firstPageOf(block) && freeable.value(block))
            m_pages.freeBlock(block);
    }
}

qsizetype JetFileReader::liveRowCount(const TableInfo& table) const
{
    qsizetype count = 0;
    for (quint32 p = 1; p < quint32(m_pages.pageCount()); ++p) {
        if (!ownsPage(table, p))
            continue;
        for (quint32 r = 0, rows = u16At(page(p), 12); r < rows; ++r)
            count += rowOf(p, r).isEmpty() ? 0 : 1;
    }
    return count;
}

std::optional<QList<quint32>> JetFileReader::mappedPages(const TableInfo& table) const
{
    const QByteArrayView map = rowOf(table.usedPagesMap >> 8, table.usedPagesMap & 0xFF);
    if (map.isEmpty())
        return std::nullopt;
    const auto pages = quint32(m_pages.pageCount());
    QList<quint32> listed;
    const auto take = [&](quint32 base, QByteArrayView bits) {
        for (qsizetype i = 0; i < bits.size() * 8; ++i) {
            if ((u8At(bits, i / 8) & (1u << (i % 8))) != 0 && base + quint32(i) < pages)
                listed.append(base + quint32(i));
        }
    };
    if (u8At(map, 0) == kInlineMap) {
        take(u32At(map, 1), map.sliced(std::min<qsizetype>(5, map.size())));
    } else if (u8At(map, 0) == kReferenceMap) {
        for (qsizetype at = 1, m = 0; at + 4 <= map.size(); at += 4, ++m) {
            const QByteArrayView bitmap = page(u32At(map, at));
            if (u32At(map, at) != 0 && !bitmap.isEmpty())
                take(quint32(m) * kMapPageBits, bitmap.sliced(kMapPageHeader));
        }
    } else {
        return std::nullopt;
    }
    return listed;
}

QString JetFileReader::usageMapDamage(const TableInfo& table) const
{
    const std::optional<QList<quint32>> listed = mappedPages(table);
    if (!listed)
        return QStringLiteral("falta el mapa de páginas de la tabla");
    const auto owned = [&](quint32 p) { return ownsPage(table, p); };
    qsizetype ownedPages = 0;
    for (quint32 p = 1; p < quint32(m_pages.pageCount()); ++p)
        ownedPages += owned(p) ? 1 : 0;
    for (const quint32 p : *listed) {
        if (!owned(p))
            return QStringLiteral("la página %1 del mapa no es de la tabla").arg(p);
    }
    if (ownedPages != listed->size())
        return QStringLiteral("el mapa de páginas no coincide con las páginas de la tabla");
    return {};
}

QList<std::pair<QString, quint32>> JetFileReader::userTables()
{
    QList<std::pair<QString, quint32>> tables;
    const std::optional<TableInfo> catalog = table(kCatalogPage);
    if (!catalog)
        return tables;
    int id = -1, name = -1, type = -1, flags = -1;
    for (int i = 0; i < catalog->columns.size(); ++i) {
        const QString& n = catalog->columns.at(i).name;
        id = n == QLatin1String("Id") ? i : id;
        name = n == QLatin1String("Name") ? i : name;
        type = n == QLatin1String("Type") ? i : type;
        flags = n == QLatin1String("Flags") ? i : flags;
    }
    if (id < 0 || name < 0 || type < 0 || flags < 0)
        return tables;
    forEachRow(*catalog, [&](const QList<QString>& f) {
        const quint32 objectType = quint32(f.at(type).toInt()) & 0x7FFF;
        if (objectType == kTableObject &&
            (quint32(f.at(flags).toInt()) & kSystemObjectFlags) == 0 && !f.at(name).isEmpty())
            tables.append({f.at(name), quint32(f.at(id).toInt()) & 0x00FFFFFF});
        return true;
    });
    return tables;
}

} // namespace nubo::database::jet
