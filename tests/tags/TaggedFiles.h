// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <QMap>
#include <QStringList>

#include <taglib/attachedpictureframe.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/tpropertymap.h>
#include <taglib/vorbisfile.h>

// Tagged music files made at test time: one second of a 440 Hz tone, 8 kHz mono, in each format
// (tests/tags/fixtures, encoded once with Debian's lame, flac, oggenc and ffmpeg's AAC encoder,
// none of which the tests need) with tags and a cover written through TagLib.
namespace nubo::test {

inline QString audioFixture(const QString& extension)
{
    return qEnvironmentVariable("NUBO_SOURCE_DIR") + QStringLiteral("/tests/tags/fixtures/tone.") +
           extension;
}

inline TagLib::String taglibText(const QString& text)
{
    return TagLib::String(text.toStdString(), TagLib::String::UTF8);
}

inline TagLib::ByteVector taglibBytes(const QByteArray& bytes)
{
    return TagLib::ByteVector(bytes.constData(), uint(bytes.size()));
}

// The cover as each format keeps it.
inline void addPicture(TagLib::File* file, const QByteArray& bytes)
{
    const auto flacPicture = [&bytes] {
        auto* picture = new TagLib::FLAC::Picture;
        picture->setData(taglibBytes(bytes));
        picture->setMimeType("image/png");
        picture->setType(TagLib::FLAC::Picture::FrontCover);
        return picture;
    };
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(file)) {
        auto* frame = new TagLib::ID3v2::AttachedPictureFrame;
        frame->setMimeType("image/png");
        frame->setPicture(taglibBytes(bytes));
        mpeg->ID3v2Tag(true)->addFrame(frame);
    } else if (auto* flac = dynamic_cast<TagLib::FLAC::File*>(file)) {
        flac->addPicture(flacPicture());
    } else if (auto* vorbis = dynamic_cast<TagLib::Ogg::Vorbis::File*>(file)) {
        vorbis->tag()->addPicture(flacPicture());
    } else if (auto* mp4 = dynamic_cast<TagLib::MP4::File*>(file)) {
        TagLib::MP4::CoverArtList covers;
        covers.append(TagLib::MP4::CoverArt(TagLib::MP4::CoverArt::PNG, taglibBytes(bytes)));
        mp4->tag()->setItem("covr", covers);
    }
}

// Writes at path the fixture of that extension with these fields (TagLib's keys) and cover;
// an MP3 gets an ID3v2.4 tag alone.
inline bool writeTagged(const QString& path, const QString& extension,
                        const QMap<QString, QStringList>& fields, const QByteArray& picture = {})
{
    QFile::remove(path);
    if (!QFile::copy(audioFixture(extension), path))
        return false;
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    const QByteArray name = QFile::encodeName(path);
    TagLib::FileRef ref(name.constData());
    if (ref.isNull())
        return false;
    TagLib::PropertyMap map;
    for (auto it = fields.begin(); it != fields.end(); ++it) {
        TagLib::StringList values;
        for (const QString& value : it.value())
            values.append(taglibText(value));
        map.insert(taglibText(it.key()), values);
    }
    ref.file()->setProperties(map);
    if (!picture.isEmpty())
        addPicture(ref.file(), picture);
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(ref.file()))
        return mpeg->save(TagLib::MPEG::File::ID3v2, TagLib::File::StripOthers, TagLib::ID3v2::v4,
                          TagLib::File::DoNotDuplicate);
    return ref.save();
}

} // namespace nubo::test
