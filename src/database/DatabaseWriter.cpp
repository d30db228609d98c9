// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/DatabaseWriter.h"

#include "database/JetRow.h"
#include "database/JetSystemTables.h"

namespace nubo::database {

using namespace jet;

namespace {

// Each table's usage maps: the pages it owns, and its last page as the one with room.
QList<QByteArray> usageMaps(const QList<QList<quint32>>& tables, quint32 firstMapPage,
                            QList<QByteArray>& mapPages)
{
    QList<QByteArray> rows;
    for (const QList<quint32>& pages : tables) {
        rows.append(usageMapRow(pages, firstMapPage, &mapPages));
        const QList<quint32> withRoom = pages.isEmpty() ? QList<quint32>{} : QList{pages.last()};
        rows.append(usageMapRow(withRoom, firstMapPage, &mapPages));
    }
    return rows;
}

} // namespace

bool isValidFieldName(const QString& name)
{
    static const QString forbidden = QStringLiteral(".!`[]");
    if (name.isEmpty() || name.size() > 64 || name.startsWith(QLatin1Char(' ')))
        return false;
    for (const QChar c : name) {
        if (c.unicode() < 0x20 || forbidden.contains(c))
            return false;
    }
    return true;
}

Failure DatabaseWriter::fail(const QString& message)
{
    m_error = message;
    m_device = nullptr;
    return {message};
}

Outcome<> DatabaseWriter::begin(QIODevice* device, const CatalogueHeader& header,
                                const QList<core::DiscRecord>& discs)
{
    m_device = nullptr;
    m_rows = 0;
    m_shortened = 0;
    m_error.clear();
    for (int i = 0; i < 4; ++i) {
        if (!isValidFieldName(header[i]))
            return fail(QStringLiteral("Nombre de campo no válido: \"%1\".").arg(header[i]));
    }
    m_table = catalogueTable(tableName(), header);
    for (int i = 0; i < m_table.columns.size(); ++i) {
        for (int j = 0; j < i; ++j) {
            const QString& name = m_table.columns.at(i).name;
            if (name.compare(m_table.columns.at(j).name, Qt::CaseInsensitive) == 0)
                return fail(QStringLiteral("Nombre de campo repetido: \"%1\".").arg(name));
        }
    }
    m_layout = layoutOf(m_table);
    m_discsTable = discsTable(core::discsTableName());
    m_discs = discs;
    m_device = device;
    if (!m_device->seek(0))
        return fail(QStringLiteral("No se puede escribir en el archivo."));
    m_nextPage = 0;
    // Room for the catalogue pages, which finish() writes once the rows are known.
    const QByteArray blank(kPageSize, '\0');
    for (quint32 p = 0; p < page::kFirstUserData; ++p) {
        if (auto step = writePage(blank); !step)
            return step;
    }
    m_page.emplace(page::kUserTable);
    return {};
}

Outcome<> DatabaseWriter::writePage(const QByteArray& bytes)
{
    if (m_device->write(bytes) != bytes.size())
        return fail(
            QStringLiteral("No se puede escribir en el archivo: %1").arg(m_device->errorString()));
    ++m_nextPage;
    return {};
}

Outcome<> DatabaseWriter::flushDataPage()
{
    if (m_page->rowCount() == 0)
        return {};
    auto written = writePage(m_page->bytes());
    m_page.emplace(page::kUserTable);
    return written;
}

Outcome<> DatabaseWriter::addRow(const CatalogueRecord& record)
{
    if (m_device == nullptr)
        return Failure{m_error};
    for (int i = 0; i < 4; ++i) {
        if (record.field(i).size() > kMaxText) {
            return fail(QStringLiteral("El campo %1 de la fila %2 tiene más de %3 caracteres.")
                            .arg(m_table.columns.at(i).name)
                            .arg(m_rows + 1)
                            .arg(kMaxText));
        }
    }
    const QByteArray row = encodeRow(m_layout, catalogueValues(record, m_dates, m_shortened));
    if (!m_page->add(row)) {
        if (auto step = flushDataPage(); !step)
            return step;
        m_page->add(row);
    }
    ++m_rows;
    return {};
}

// The discs' rows go after the catalogue's, on pages of their own.
Outcome<> DatabaseWriter::writeDiscs(QList<quint32>& pages)
{
    const RowLayout layout = layoutOf(m_discsTable);
    DataPage data(page::kDiscsTable);
    for (const core::DiscRecord& disc : std::as_const(m_discs)) {
        const QByteArray row = encodeRow(layout, discValues(disc, m_shortened));
        if (data.add(row))
            continue;
        pages.append(m_nextPage);
        if (auto step = writePage(data.bytes()); !step)
            return step;
        data = DataPage(page::kDiscsTable);
        data.add(row);
    }
    if (data.rowCount() > 0) {
        pages.append(m_nextPage);
        return writePage(data.bytes());
    }
    return {};
}

Outcome<> DatabaseWriter::finish()
{
    if (m_device == nullptr)
        return Failure{m_error};
    if (auto step = flushDataPage(); !step)
        return step;
    QList<quint32> dataPages;
    for (quint32 p = page::kFirstUserData; p < m_nextPage; ++p)
        dataPages.append(p);
    QList<quint32> discPages;
    if (auto step = writeDiscs(discPages); !step)
        return step;
    QList<QByteArray> mapPages;
    const QList<QByteArray> maps = usageMaps({dataPages, discPages}, m_nextPage, mapPages);
    for (const QByteArray& map : std::as_const(mapPages)) {
        if (auto step = writePage(map); !step)
            return step;
    }
    const double created = oleDateNow();
    m_table.rowCount = quint32(m_rows);
    m_discsTable.rowCount = quint32(m_discs.size());
    QList<QByteArray> front = {headerPage(created), allocationPage(m_nextPage)};
    const QList<UserTable> tables = {{tableName(), page::kUserTable},
                                     {m_discsTable.name, page::kDiscsTable}};
    front += SystemCatalog(tables, created).pages(maps);
    front.append(tableDefinitionPage(m_table));
    front.append(tableDefinitionPage(m_discsTable));
    if (!m_device->seek(0))
        return fail(QStringLiteral("No se puede escribir en el archivo."));
    for (const QByteArray& p : std::as_const(front)) {
        if (m_device->write(p) != p.size())
            return fail(QStringLiteral("No se puede escribir en el archivo: %1")
                            .arg(m_device->errorString()));
    }
    m_device = nullptr;
    return {};
}

} // namespace nubo::database
