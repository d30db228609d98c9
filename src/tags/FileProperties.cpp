// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FileProperties.h"

#include "tags/TagReader.h"

#include <QFile>
#include <QFileInfo>

#include <taglib/asffile.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/oggflacfile.h>
#include <taglib/opusfile.h>
#include <taglib/tbytevectorstream.h>
#include <taglib/tpropertymap.h>
#include <taglib/vorbisfile.h>
#include <taglib/wavfile.h>

#include <algorithm>

namespace nubo::tags {

namespace {

QString toQString(const TagLib::String& text)
{
    return QString::fromStdString(text.to8Bit(true));
}

QByteArray toBytes(const TagLib::ByteVector& data)
{
    return QByteArray(data.data(), qsizetype(data.size()));
}

// A byte stream that keeps the name of the file it came from, so the format can be found by its
// extension as for a file on disk.
class NamedByteStream final : public TagLib::ByteVectorStream
{
public:
    NamedByteStream(const QByteArray& bytes, const QString& name)
        : TagLib::ByteVectorStream(TagLib::ByteVector(bytes.constData(), uint(bytes.size()))),
          m_name(QFile::encodeName(name))
    {
    }
    TagLib::FileName name() const override { return m_name.constData(); }

private:
    QByteArray m_name;
};

// The keys shown first, in this order; the rest follow in the library's order.
const QStringList& usualKeys()
{
    static const QStringList keys{QStringLiteral("TITLE"),      QStringLiteral("ARTIST"),
                                  QStringLiteral("ALBUM"),      QStringLiteral("ALBUMARTIST"),
                                  QStringLiteral("DATE"),       QStringLiteral("TRACKNUMBER"),
                                  QStringLiteral("DISCNUMBER"), QStringLiteral("GENRE"),
                                  QStringLiteral("COMMENT"),    QStringLiteral("COMPOSER")};
    return keys;
}

QList<TagField> fieldsOf(const TagLib::PropertyMap& map)
{
    QList<TagField> fields;
    for (const auto& [key, values] : map) {
        TagField field{toQString(key), {}};
        for (const TagLib::String& value : values)
            field.values.append(toQString(value));
        fields.append(field);
    }
    const auto rank = [](const TagField& field) {
        const qsizetype usual = usualKeys().indexOf(field.key);
        return usual < 0 ? usualKeys().size() : usual;
    };
    std::stable_sort(fields.begin(), fields.end(),
                     [&rank](const TagField& a, const TagField& b) { return rank(a) < rank(b); });
    return fields;
}

bool pictureOf(TagLib::ID3v2::Tag* tag, FileProperties& out)
{
    if (!tag)
        return false;
    const TagLib::ID3v2::FrameList& frames = tag->frameListMap()["APIC"];
    for (const TagLib::ID3v2::Frame* frame : frames) {
        if (const auto* apic = dynamic_cast<const TagLib::ID3v2::AttachedPictureFrame*>(frame)) {
            out.picture = toBytes(apic->picture());
            out.pictureMimeType = toQString(apic->mimeType());
            return true;
        }
    }
    return false;
}

bool pictureOf(const TagLib::List<TagLib::FLAC::Picture*>& pictures, FileProperties& out)
{
    if (pictures.isEmpty())
        return false;
    out.picture = toBytes(pictures.front()->data());
    out.pictureMimeType = toQString(pictures.front()->mimeType());
    return true;
}

bool mp4Picture(TagLib::MP4::File* file, FileProperties& out)
{
    if (!file->tag() || !file->tag()->contains("covr"))
        return false;
    const TagLib::MP4::CoverArtList covers = file->tag()->item("covr").toCoverArtList();
    if (covers.isEmpty())
        return false;
    out.picture = toBytes(covers.front().data());
    out.pictureMimeType = covers.front().format() == TagLib::MP4::CoverArt::PNG
                              ? QStringLiteral("image/png")
                              : QStringLiteral("image/jpeg");
    return true;
}

bool asfPicture(TagLib::ASF::File* file, FileProperties& out)
{
    if (!file->tag() || !file->tag()->contains("WM/Picture"))
        return false;
    const TagLib::ASF::AttributeList list = file->tag()->attribute("WM/Picture");
    if (list.isEmpty())
        return false;
    const TagLib::ASF::Picture picture = list.front().toPicture();
    out.picture = toBytes(picture.picture());
    out.pictureMimeType = toQString(picture.mimeType());
    return true;
}

// The first picture of whichever format the file is.
void readPicture(TagLib::File* file, FileProperties& out)
{
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(file))
        pictureOf(mpeg->ID3v2Tag(), out);
    else if (auto* flac = dynamic_cast<TagLib::FLAC::File*>(file))
        pictureOf(flac->pictureList(), out) ||
            (flac->xiphComment() && pictureOf(flac->xiphComment()->pictureList(), out));
    else if (auto* vorbis = dynamic_cast<TagLib::Ogg::Vorbis::File*>(file))
        pictureOf(vorbis->tag()->pictureList(), out);
    else if (auto* opus = dynamic_cast<TagLib::Ogg::Opus::File*>(file))
        pictureOf(opus->tag()->pictureList(), out);
    else if (auto* oggFlac = dynamic_cast<TagLib::Ogg::FLAC::File*>(file))
        pictureOf(oggFlac->tag()->pictureList(), out);
    else if (auto* mp4 = dynamic_cast<TagLib::MP4::File*>(file))
        mp4Picture(mp4, out);
    else if (auto* asf = dynamic_cast<TagLib::ASF::File*>(file))
        asfPicture(asf, out);
    else if (auto* wav = dynamic_cast<TagLib::RIFF::WAV::File*>(file))
        pictureOf(wav->ID3v2Tag(), out);
}

// Whether the library found tag fields or audio in a file: it takes an empty or foreign file
// for an MP3 without frames, with neither.
bool holdsTagsOrAudio(const TagLib::PropertyMap& map, const TagLib::AudioProperties* audio)
{
    return !map.isEmpty() || (audio && audio->sampleRate() > 0);
}

// A file counts as read when it holds tags, audio or a picture.
void readFrom(const TagLib::FileRef& ref, FileProperties& out)
{
    if (ref.isNull())
        return;
    const TagLib::PropertyMap map = ref.file()->properties();
    const TagLib::AudioProperties* audio = ref.audioProperties();
    out.fields = fieldsOf(map);
    if (audio) {
        out.lengthSeconds = audio->lengthInSeconds();
        out.bitrate = audio->bitrate();
        out.sampleRate = audio->sampleRate();
        out.channels = audio->channels();
    }
    readPicture(ref.file(), out);
    out.readable = holdsTagsOrAudio(map, audio) || !out.picture.isEmpty();
    if (!out.readable)
        out.bitrate = out.lengthSeconds = out.channels = 0;
}

} // namespace

QString FileProperties::value(const QString& key) const
{
    for (const TagField& field : fields) {
        if (field.key == key && !field.values.isEmpty())
            return field.values.first();
    }
    return {};
}

FileProperties readFileProperties(const QString& path)
{
    FileProperties out;
    out.path = path;
    const QFileInfo info(path);
    out.size = info.size();
    out.typeName = FileTypeName(path);
    if (!info.isFile())
        return out;
    const QByteArray name = QFile::encodeName(path);
    readFrom(TagLib::FileRef(name.constData()), out);
    return out;
}

FileProperties readFileProperties(const QByteArray& bytes, const QString& name)
{
    FileProperties out;
    out.path = name;
    out.size = bytes.size();
    NamedByteStream stream(bytes, name);
    readFrom(TagLib::FileRef(&stream), out);
    return out;
}

QStringList scanTagColumns(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const TagLib::FileRef ref(name.constData(), true, TagLib::AudioProperties::Fast);
    const TagLib::AudioProperties* audio = ref.isNull() ? nullptr : ref.audioProperties();
    const TagLib::PropertyMap map = ref.isNull() ? TagLib::PropertyMap() : ref.file()->properties();
    if (!ref.tag() || !holdsTagsOrAudio(map, audio))
        return QStringList(scanTagCaptions().size(), QString());
    // Several values of a field are joined as every format gives them the same way.
    const auto joined = [&map](const char* key) {
        const auto found = map.find(key);
        return found == map.end() ? QString() : toQString(found->second.toString("; "));
    };
    const auto number = [](unsigned int n) { return n ? QString::number(n) : QString(); };
    return {joined("TITLE"),
            joined("ARTIST"),
            joined("ALBUM"),
            number(ref.tag()->year()),
            number(ref.tag()->track()),
            audio ? formatLength(audio->lengthInSeconds()) : QString()};
}

QStringList scanTagCaptions()
{
    return {QStringLiteral("TITULO"), QStringLiteral("ARTISTA"), QStringLiteral("ALBUM"),
            QStringLiteral("AÑO"),    QStringLiteral("PISTA"),   QStringLiteral("DURACION")};
}

QString formatLength(int seconds)
{
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

} // namespace nubo::tags
