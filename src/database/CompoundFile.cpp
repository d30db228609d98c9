#include "database/CompoundFile.h"

#include "database/GsfSession.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-input.h>

namespace nubo::database {
namespace {

// Owns one GObject reference.
template <typename T> struct GsfRef
{
    T* object = nullptr;
    explicit GsfRef(T* o) : object(o) {}
    ~GsfRef()
    {
        if (object != nullptr)
            g_object_unref(object);
    }
    GsfRef(const GsfRef&) = delete;
    GsfRef& operator=(const GsfRef&) = delete;
};

std::optional<QByteArray> readWhole(GsfInput* input, qint64 limit)
{
    const gsf_off_t size = gsf_input_size(input);
    if (size < 0 || size > limit)
        return std::nullopt;
    QByteArray bytes(qsizetype(size), Qt::Uninitialized);
    if (size > 0 &&
        gsf_input_read(input, size_t(size), reinterpret_cast<guint8*>(bytes.data())) == nullptr)
        return std::nullopt;
    return bytes;
}

} // namespace

bool looksLikeCompoundFile(const QByteArray& head)
{
    return head.startsWith(QByteArray::fromHex("d0cf11e0a1b11ae1"));
}

std::optional<QByteArray> compoundFileStream(const QByteArray& file, const QString& name)
{
    if (!looksLikeCompoundFile(file))
        return std::nullopt;
    ensureGsf();
    GsfRef<GsfInput> input(gsf_input_memory_new(reinterpret_cast<const guint8*>(file.constData()),
                                                file.size(), FALSE));
    GError* error = nullptr;
    GsfRef<GsfInfile> container(gsf_infile_msole_new(input.object, &error));
    g_clear_error(&error);
    if (container.object == nullptr)
        return std::nullopt;
    const int children = gsf_infile_num_children(container.object);
    for (int i = 0; i < children; ++i) {
        const char* childName = gsf_infile_name_by_index(container.object, i);
        if (childName == nullptr ||
            QString::fromUtf8(childName).compare(name, Qt::CaseInsensitive) != 0)
            continue;
        GsfRef<GsfInput> stream(gsf_infile_child_by_index(container.object, i));
        if (stream.object == nullptr)
            return std::nullopt;
        return readWhole(stream.object, file.size());
    }
    return std::nullopt;
}

} // namespace nubo::database
