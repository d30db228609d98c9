// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/DatabaseReader.h"

#include "database/JetFileReader.h"
#include "database/SourceFile.h"

namespace nubo::database {
namespace {

constexpr int kFields = 4;
constexpr qsizetype kJetPage = 2048;  // the smaller of the two page sizes
constexpr qsizetype kJetPage4 = 4096; // Jet 4's page

} // namespace

bool looksLikeJetDatabase(const QByteArray& head)
{
    if (head.size() < kJetPage || !head.startsWith(QByteArray("\0\1\0\0", 4)))
        return false;
    const QByteArray magic = head.mid(4, 16);
    return magic == QByteArray("Standard Jet DB\0", 16) ||
           magic == QByteArray("Standard ACE DB\0", 16);
}

QString decodeJetText(const char* data, qsizetype size)
{
    QString text;
    const auto* bytes = reinterpret_cast<const quint8*>(data);
    if (size >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE) {
        // Compressed: one byte a character; a zero byte switches to and from UTF-16.
        bool compressed = true;
        text.reserve(size - 2);
        for (qsizetype i = 2; i < size;) {
            if (bytes[i] == 0) {
                compressed = !compressed;
                ++i;
            } else if (compressed) {
                text.append(QChar(bytes[i++]));
            } else if (i + 1 < size) {
                text.append(QChar(char16_t(bytes[i] | (bytes[i + 1] << 8))));
                i += 2;
            } else {
                break;
            }
        }
        return text;
    }
    text.reserve(size / 2);
    for (qsizetype i = 0; i + 1 < size; i += 2)
        text.append(QChar(char16_t(bytes[i] | (bytes[i + 1] << 8))));
    return text;
}

void DatabaseReader::close()
{
    m_rows.clear();
    m_next = 0;
    m_recordCount = 0;
    m_tableName.clear();
    m_fieldNames.clear();
    m_damage.clear();
}

Failure DatabaseReader::fail(const QString& message)
{
    close();
    return {message};
}

Outcome<> DatabaseReader::open(const QString& path)
{
    close();
    Outcome<QByteArray> source = readSourceFile(path);
    if (!source)
        return fail(source.reason());
    return read(source.value(), path);
}

Outcome<> DatabaseReader::read(const QByteArray& file, const QString& name)
{
    close();
    const jet::JetFileReader jet(file);
    if (jet.kind() == jet::JetFileReader::Kind::OlderJet)
        return fail(QStringLiteral("%1 es una base de datos de Access 97 o anterior: "
                                   "conviértala a Access 2000 o posterior.")
                        .arg(name));
    if (jet.kind() != jet::JetFileReader::Kind::Jet4)
        return fail(QStringLiteral("%1 no es una base de datos de Access.").arg(name));
    QList<std::pair<QString, quint32>> tables = jet.userTables();
    if (tables.isEmpty())
        return fail(QStringLiteral("%1 no contiene ninguna tabla.").arg(name));
    const auto first = std::min_element(tables.begin(), tables.end(), [](auto& a, auto& b) {
        return a.first.compare(b.first, Qt::CaseInsensitive) < 0;
    });
    const std::optional<jet::TableInfo> table = jet.table(first->second);
    if (!table)
        return fail(QStringLiteral("No se puede leer la tabla %1 de %2.").arg(first->first, name));
    m_tableName = first->first;
    m_recordCount = table->rowCount;
    const int fields = std::min<int>(kFields, int(table->columns.size()));
    for (int i = 0; i < fields; ++i)
        m_fieldNames.append(table->columns.at(i).name);
    jet.forEachRow(*table, [&](const QList<QString>& values) {
        CatalogueRecord record;
        for (int i = 0; i < fields; ++i) {
            record.field(i) = values.at(i);
            // Folders, groups and formats repeat from record to record: one shared copy each.
            if (i > 0 && !m_rows.isEmpty() && record.field(i) == m_rows.constLast().field(i))
                record.field(i) = m_rows.constLast().field(i);
        }
        m_rows.append(std::move(record));
        return true;
    });
    checkWhole(file.size());
    if (m_damage.isEmpty())
        m_damage = jet.usageMapDamage(*table);
    return {};
}

// The table states how many records it has, and the file is made of whole pages: anything else
// means pages were lost or damaged.
void DatabaseReader::checkWhole(qsizetype fileSize)
{
    if (m_rows.size() != m_recordCount)
        m_damage = QStringLiteral("la tabla declara %1 registros y se encontraron %2")
                       .arg(m_recordCount)
                       .arg(m_rows.size());
    else if (fileSize % kJetPage4 != 0)
        m_damage = QStringLiteral("el archivo está cortado a mitad de una página");
}

std::optional<CatalogueRecord> DatabaseReader::next()
{
    if (m_next >= m_rows.size())
        return std::nullopt;
    return m_rows.at(m_next++);
}

QList<CatalogueRecord> DatabaseReader::takeRecords()
{
    QList<CatalogueRecord> rest = m_next == 0 ? std::move(m_rows) : m_rows.mid(m_next);
    m_rows.clear();
    m_next = 0;
    return rest;
}

} // namespace nubo::database
