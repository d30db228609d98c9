// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/CompoundFile.h"

#include "database/GsfSession.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-input.h>

#include <QtEndian>

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

// Some producers write a small-stream container size of 0 while their small-sector table is in
// use. The container's sector chain is still there, so a copy gives it the file's size as an
// upper bound and the chain's end decides what is read; nullopt when the header is not so.
std::optional<QByteArray> withSmallStreamSizeRepaired(const QByteArray& file)
{
    const auto u32 = [&file](qsizetype at) {
        return qFromLittleEndian<quint32>(file.constData() + at);
    };
    if (file.size() < 512)
        return std::nullopt;
    const quint16 shift = qFromLittleEndian<quint16>(file.constData() + 0x1E);
    if ((shift != 9 && shift != 12) || u32(0x40) == 0)
        return std::nullopt;
    const qint64 rootAt = (qint64(u32(0x30)) + 1) << shift;
    if (rootAt + 128 > file.size() || u32(rootAt + 0x78) != 0)
        return std::nullopt;
    QByteArray copy = file;
    qToLittleEndian<quint32>(quint32(file.size()), copy.data() + rootAt + 0x78);
    return copy;
}

std::optional<QByteArray> streamFromContainer(const QByteArray& file, const QString& name)
{
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
    if (auto stream = streamFromContainer(file, name))
        return stream;
    if (const auto repaired = withSmallStreamSizeRepaired(file))
        return streamFromContainer(*repaired, name);
    return std::nullopt;
}

} // namespace nubo::database
