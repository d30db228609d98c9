// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/DatabaseReader.h"

#include "database/DatabaseWriter.h"
#include "database/JetFileReader.h"
#include "database/SourceFile.h"

#include <cstring>
#include <limits>

namespace nubo::database {
namespace {

constexpr int kFields = 4;
constexpr qsizetype kJetPage = 2048;               // the smaller of the two page sizes
constexpr qsizetype kJetPage4 = 4096;              // Jet 4's page
constexpr qsizetype kReadBlock = 1024 * kJetPage4; // a file is read, and freed, 4 MiB at a time

// "m:ss" or "h:mm:ss" as the list writes a length, read without a pattern; none for other text,
// which FileDetails::setText then reads.
std::optional<qint32> plainDuration(const QString& text)
{
    qint64 value = 0;
    qint64 group = 0;
    int digits = 0;
    int groups = 1;
    for (const QChar c : text) {
        if (c >= u'0' && c <= u'9' && digits < 6) {
            group = group * 10 + (c.unicode() - u'0');
            ++digits;
        } else if (c == u':' && digits > 0 && groups < 3) {
            value = (value + group) * 60;
            group = 0;
            digits = 0;
            ++groups;
        } else {
            return std::nullopt;
        }
    }
    value += group;
    if (groups < 2 || digits != 2 || group > 59 || value > std::numeric_limits<qint32>::max())
        return std::nullopt;
    return qint32(value);
}

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
    if (size >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE &&
        std::memchr(bytes + 2, 0, size_t(size - 2)) == nullptr)
        return QString::fromLatin1(data + 2, size - 2); // compressed throughout
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
    text.resize(size / 2);
    QChar* out = text.data();
    for (qsizetype i = 0; i + 1 < size; i += 2)
        *out++ = QChar(char16_t(bytes[i] | (bytes[i + 1] << 8)));
    return text;
}

QString foldedFieldName(const QString& name)
{
    const QString decomposed = name.trimmed().normalized(QString::NormalizationForm_D);
    QString folded;
    folded.reserve(decomposed.size());
    for (const QChar c : decomposed) {
        if (c.category() != QChar::Mark_NonSpacing)
            folded.append(c.toCaseFolded());
    }
    return folded;
}

void DatabaseReader::close()
{
    m_jet.reset();
    m_table.reset();
    m_fields = 0;
    m_detailAt.fill(-1);
    m_recordCount = 0;
    m_liveRecords = 0;
    m_skipped = {};
    m_tableName.clear();
    m_fieldNames.clear();
    m_damage.clear();
    m_hasDiscs = false;
    m_discs.clear();
}

Failure DatabaseReader::fail(const QString& message)
{
    close();
    return {message};
}

Outcome<> DatabaseReader::open(const QString& path)
{
    close();
    Outcome<QList<QByteArray>> source = readSourceBlocks(path, kReadBlock);
    if (!source)
        return fail(source.reason());
    m_jet.emplace(std::move(*source));
    return readTables(path);
}

Outcome<> DatabaseReader::read(const QByteArray& file, const QString& name)
{
    close();
    m_jet.emplace(file);
    return readTables(name);
}

std::pair<QString, quint32>
DatabaseReader::chooseTable(const QList<std::pair<QString, quint32>>& tables)
{
    for (const auto& table : tables) {
        if (table.first.compare(DatabaseWriter::tableName(), Qt::CaseInsensitive) == 0)
            return table;
    }
    return *std::min_element(tables.begin(), tables.end(), [](auto& a, auto& b) {
        return a.first.compare(b.first, Qt::CaseInsensitive) < 0;
    });
}

Outcome<> DatabaseReader::readTables(const QString& name)
{
    if (m_jet->kind() == jet::JetFileReader::Kind::OlderJet)
        return fail(QStringLiteral("%1 es una base de datos de Access 97 o anterior: "
                                   "conviértala a Access 2000 o posterior.")
                        .arg(name));
    if (m_jet->kind() != jet::JetFileReader::Kind::Jet4)
        return fail(QStringLiteral("%1 no es una base de datos de Access.").arg(name));
    QList<std::pair<QString, quint32>> tables = m_jet->userTables();
    if (tables.isEmpty())
        return fail(QStringLiteral("%1 no contiene ninguna tabla.").arg(name));
    const std::pair<QString, quint32> chosen = chooseTable(tables);
    m_table = m_jet->table(chosen.second);
    if (!m_table)
        return fail(QStringLiteral("No se puede leer la tabla %1 de %2.").arg(chosen.first, name));
    m_tableName = chosen.first;
    m_recordCount = m_table->rowCount;
    m_fields = std::min<int>(kFields, int(m_table->columns.size()));
    for (int i = 0; i < m_fields; ++i)
        m_fieldNames.append(m_table->columns.at(i).name);
    findDetailFields();
    for (const auto& [tableName, page] : tables) {
        if (tableName.compare(core::discsTableName(), Qt::CaseInsensitive) != 0 ||
            page == chosen.second || m_hasDiscs)
            continue;
        if (const std::optional<jet::TableInfo> discs = m_jet->table(page))
            readDiscs(*discs);
    }
    m_liveRecords = m_jet->liveRowCount(*m_table);
    checkWhole(m_jet->fileSize());
    if (m_damage.isEmpty())
        m_damage = m_jet->usageMapDamage(*m_table);
    return {};
}

void DatabaseReader::findDetailFields()
{
    const QStringList captions = core::detailCaptions();
    for (int f = 0; f < core::kDetailFieldCount; ++f) {
        const QString wanted = foldedFieldName(captions[f]);
        for (int i = kFields; i < m_table->columns.size() && m_detailAt[f] < 0; ++i) {
            if (foldedFieldName(m_table->columns.at(i).name) == wanted)
                m_detailAt[f] = i;
        }
    }
}

void DatabaseReader::readDiscs(const jet::TableInfo& table)
{
    m_hasDiscs = true;
    QStringList captions = core::discCaptions();
    for (QString& caption : captions)
        caption = foldedFieldName(caption);
    QList<int> at(core::kDiscFieldCount, -1);
    for (int i = 0; i < table.columns.size(); ++i) {
        const int f = int(captions.indexOf(foldedFieldName(table.columns.at(i).name)));
        if (f >= 0 && at[f] < 0)
            at[f] = i;
    }
    m_jet->forEachRow(table, [&](const QList<QString>& values) {
        core::DiscRecord disc;
        for (int f = 0; f < core::kDiscFieldCount; ++f) {
            if (at[f] >= 0 && !disc.setText(core::DiscField(f), values.at(at[f])))
                m_skipped.add(core::discCaptions().at(f));
        }
        if (disc.origen.isEmpty())
            m_skipped.add(core::discsTableName());
        else
            m_discs.append(std::move(disc));
        return true;
    });
}

CatalogueRecord DatabaseReader::recordOf(const QList<QString>& values,
                                         const CatalogueRecord* before)
{
    CatalogueRecord record;
    for (int i = 0; i < m_fields; ++i)
        record.field(i) = values.at(i);
    for (int f = 0; f < core::kDetailFieldCount; ++f) {
        const int at = m_detailAt[f];
        if (at < 0 || values.at(at).isEmpty())
            continue;
        if (core::DetailField(f) == core::DetailField::Fecha) {
            const std::optional<qint64> date = m_dates.fromText(values.at(at));
            record.details.modified = date.value_or(core::FileDetails::kNoDate);
            if (!date)
                m_skipped.add(core::detailCaptions().at(f));
        } else if (const auto length = core::DetailField(f) == core::DetailField::Duracion
                                           ? plainDuration(values.at(at))
                                           : std::nullopt) {
            record.details.duration = *length;
        } else if (!record.details.setText(core::DetailField(f), values.at(at))) {
            m_skipped.add(core::detailCaptions().at(f));
        }
    }
    if (before == nullptr)
        return record;
    // Folders, groups, formats and most tags repeat from record to record: one shared copy each.
    const auto share = [](QString& text, const QString& other) {
        if (text.constData() != other.constData() && text == other)
            text = other;
    };
    for (int i = 1; i < m_fields; ++i)
        share(record.field(i), before->field(i));
    share(record.details.artist, before->details.artist);
    share(record.details.album, before->details.album);
    share(record.details.genre, before->details.genre);
    return record;
}

void DatabaseReader::forEachRecord(const std::function<bool(CatalogueRecord&&)>& visit, Order order)
{
    if (!m_table)
        return;
    std::optional<CatalogueRecord> before;
    m_jet->forEachRow(
        *m_table,
        [&](const QList<QString>& values) {
            CatalogueRecord record = recordOf(values, before ? &*before : nullptr);
            before = record; // shares every text, copies nothing
            return visit(std::move(record));
        },
        order == Order::FileOrder   ? jet::JetFileReader::Walk::FileOrder
        : order == Order::LastFirst ? jet::JetFileReader::Walk::LastFirst
                                    : jet::JetFileReader::Walk::LastFirstFreeing);
}

// The table states how many records it has, and the file is made of whole pages: anything else
// means pages were lost or damaged.
void DatabaseReader::checkWhole(qsizetype fileSize)
{
    if (m_liveRecords != m_recordCount)
        m_damage = QStringLiteral("la tabla declara %1 registros y se encontraron %2")
                       .arg(m_recordCount)
                       .arg(m_liveRecords);
    else if (fileSize % kJetPage4 != 0)
        m_damage = QStringLiteral("el archivo está cortado a mitad de una página");
}

} // namespace nubo::database
