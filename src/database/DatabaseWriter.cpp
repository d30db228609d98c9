// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/DatabaseWriter.h"

#include "database/JetRow.h"
#include "database/JetSystemTables.h"

namespace nubo::database {

using namespace jet;

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

Outcome<> DatabaseWriter::begin(QIODevice* device, const CatalogueHeader& header)
{
    m_device = nullptr;
    m_rows = 0;
    m_error.clear();
    for (int i = 0; i < 4; ++i) {
        if (!isValidFieldName(header[i]))
            return fail(QStringLiteral("Nombre de campo no válido: \"%1\".").arg(header[i]));
        for (int j = 0; j < i; ++j) {
            if (header[i].compare(header[j], Qt::CaseInsensitive) == 0)
                return fail(QStringLiteral("Nombre de campo repetido: \"%1\".").arg(header[i]));
        }
    }
    m_table = Table{};
    m_table.name = tableName();
    for (int i = 0; i < 4; ++i) {
        Column c;
        c.name = header[i];
        c.type = kText;
        c.number = quint16(i);
        c.length = quint16(2 * kMaxText);
        c.flags = kUpdatableColumn;
        c.extFlags = kCompressedText;
        m_table.columns.append(c);
    }
    m_table.usedPages = {page::kUsageMaps, maprow::kUserTableUsed};
    m_table.freePages = {page::kUsageMaps, maprow::kUserTableFree};
    m_layout = layoutOf(m_table);
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
    QList<Value> values(4);
    for (int i = 0; i < 4; ++i) {
        const QString& text = record.field(i);
        if (text.size() > kMaxText) {
            return fail(QStringLiteral("El campo %1 de la fila %2 tiene más de %3 caracteres.")
                            .arg(m_table.columns.at(i).name)
                            .arg(m_rows + 1)
                            .arg(kMaxText));
        }
        if (!text.isEmpty())
            values[i] = text;
    }
    const QByteArray row = encodeRow(m_layout, values);
    if (!m_page->add(row)) {
        if (auto step = flushDataPage(); !step)
            return step;
        m_page->add(row);
    }
    ++m_rows;
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
    QList<QByteArray> mapPages;
    const QByteArray used = usageMapRow(dataPages, m_nextPage, &mapPages);
    const QList<quint32> withRoom =
        dataPages.isEmpty() ? QList<quint32>{} : QList{dataPages.last()};
    const QByteArray free = usageMapRow(withRoom, m_nextPage, &mapPages);
    for (const QByteArray& map : std::as_const(mapPages)) {
        if (auto step = writePage(map); !step)
            return step;
    }
    const double created = oleDateNow();
    m_table.rowCount = quint32(m_rows);
    QList<QByteArray> front = {headerPage(created), allocationPage(m_nextPage)};
    front += SystemCatalog(tableName(), created).pages(used, free);
    front.append(tableDefinitionPage(m_table));
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
