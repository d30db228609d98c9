#include "database/DatabaseReader.h"

#include <QFile>

// The library's header includes the C glib header inside its own C linkage block.
#include <glib.h>

#include <mdbtools.h>

namespace nubo::database {
namespace {

constexpr int kFields = 4;
constexpr qsizetype kJetPage = 2048; // the smaller of the two page sizes

} // namespace

struct DatabaseReader::State
{
    MdbHandle* mdb = nullptr;
    MdbTableDef* table = nullptr;
    int fieldCount = 0;
    int textField[kFields] = {};
    char* bound[kFields] = {};

    ~State()
    {
        for (char* buffer : bound)
            g_free(buffer);
        if (table != nullptr)
            mdb_free_tabledef(table);
        if (mdb != nullptr)
            mdb_close(mdb);
    }
};

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

DatabaseReader::DatabaseReader() = default;

DatabaseReader::~DatabaseReader() = default;

void DatabaseReader::close()
{
    m_state.reset();
    m_tableName.clear();
    m_fieldNames.clear();
}

bool DatabaseReader::fail(const QString& message)
{
    close();
    m_error = message;
    return false;
}

qsizetype DatabaseReader::recordCount() const
{
    return m_state ? qsizetype(m_state->table->num_rows) : 0;
}

bool DatabaseReader::open(const QString& path)
{
    close();
    m_error.clear();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("No se puede abrir el archivo %1.").arg(path));
    if (!looksLikeJetDatabase(file.read(kJetPage)))
        return fail(QStringLiteral("%1 no es una base de datos de Access.").arg(path));
    file.close();

    m_state = std::make_unique<State>();
    m_state->mdb = mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS);
    if (m_state->mdb == nullptr || mdb_read_catalog(m_state->mdb, MDB_TABLE) == nullptr)
        return fail(QStringLiteral("%1 no es una base de datos de Access.").arg(path));
    MdbCatalogEntry* first = nullptr;
    QString firstName;
    GPtrArray* catalog = m_state->mdb->catalog;
    for (guint i = 0; i < catalog->len; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(catalog, i));
        if (entry->object_type != MDB_TABLE || mdb_is_system_table(entry))
            continue;
        const QString name = QString::fromUtf8(entry->object_name);
        if (first == nullptr || name.compare(firstName, Qt::CaseInsensitive) < 0) {
            first = entry;
            firstName = name;
        }
    }
    if (first == nullptr)
        return fail(QStringLiteral("%1 no contiene ninguna tabla.").arg(path));
    m_state->table = mdb_read_table(first);
    if (m_state->table == nullptr || mdb_read_columns(m_state->table) == nullptr)
        return fail(QStringLiteral("No se puede leer la tabla %1 de %2.").arg(firstName, path));
    m_tableName = firstName;
    State& s = *m_state;
    s.fieldCount = std::min<int>(kFields, int(s.table->num_cols));
    for (int i = 0; i < s.fieldCount; ++i) {
        auto* column = static_cast<MdbColumn*>(g_ptr_array_index(s.table->columns, i));
        m_fieldNames.append(QString::fromUtf8(column->name));
        s.textField[i] = column->col_type == MDB_TEXT;
        // Text is decoded here from its stored bytes; other types take the library's text.
        if (!s.textField[i]) {
            s.bound[i] = static_cast<char*>(g_malloc0(MDB_BIND_SIZE));
            mdb_bind_column(s.table, i + 1, s.bound[i], nullptr);
        }
    }
    mdb_rewind_table(s.table);
    return true;
}

bool DatabaseReader::next(CatalogueRecord& record)
{
    if (!m_state || !mdb_fetch_row(m_state->table))
        return false;
    State& s = *m_state;
    record = {};
    for (int i = 0; i < s.fieldCount; ++i) {
        auto* column = static_cast<MdbColumn*>(g_ptr_array_index(s.table->columns, i));
        if (!s.textField[i]) {
            record.field(i) = QString::fromUtf8(s.bound[i]);
        } else if (column->cur_value_len > 0 && column->cur_value_start >= 0 &&
                   size_t(column->cur_value_start + column->cur_value_len) <=
                       size_t(s.mdb->fmt->pg_size)) {
            record.field(i) = decodeJetText(reinterpret_cast<const char*>(s.mdb->pg_buf) +
                                                column->cur_value_start,
                                            column->cur_value_len);
        }
    }
    return true;
}

} // namespace nubo::database
