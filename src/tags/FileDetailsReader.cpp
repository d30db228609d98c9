// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FileDetailsReader.h"

#include <QFile>
#include <QSet>

#include <taglib/fileref.h>
#include <taglib/tag.h>

#include <sys/stat.h>

#include <limits>

namespace nubo::tags {

namespace {

// Tag texts may hold NUL bytes and padding; neither is part of the value.
QString cleanText(const TagLib::String& text)
{
    if (text.isEmpty())
        return {};
    QString out = QString::fromStdString(text.to8Bit(true));
    out.remove(QChar(0));
    return out.trimmed();
}

quint16 smallNumber(unsigned int value)
{
    return value <= std::numeric_limits<quint16>::max() ? quint16(value) : quint16(0);
}

const QSet<QString>& tagExtensions()
{
    // Built once, thread-safely, before any reader thread asks.
    static const QSet<QString> extensions = [] {
        QSet<QString> out;
        for (const TagLib::String& extension : TagLib::FileRef::defaultFileExtensions())
            out.insert(QString::fromStdString(extension.to8Bit(true)).toLower());
        return out;
    }();
    return extensions;
}

void readTags(const QByteArray& name, core::FileDetails& details)
{
    const TagLib::FileRef ref(name.constData(), true, TagLib::AudioProperties::Fast);
    if (ref.isNull())
        return;
    if (const TagLib::Tag* tag = ref.tag()) {
        details.title = cleanText(tag->title());
        details.artist = cleanText(tag->artist());
        details.album = cleanText(tag->album());
        details.genre = cleanText(tag->genre());
        details.year = smallNumber(tag->year());
        details.track = smallNumber(tag->track());
    }
    // A file the library mistook for audio has no sample rate: it has no length either.
    if (const TagLib::AudioProperties* audio = ref.audioProperties();
        audio && audio->sampleRate() > 0)
        details.duration = audio->lengthInSeconds();
}

} // namespace

bool hasTagFormat(const QString& path)
{
    const qsizetype dot = path.lastIndexOf(QLatin1Char('.'));
    if (dot < 0 || path.indexOf(QLatin1Char('/'), dot) >= 0)
        return false;
    return tagExtensions().contains(path.mid(dot + 1).toLower());
}

core::FileDetails readFileDetails(const QString& path)
{
    core::FileDetails details;
    const QByteArray name = QFile::encodeName(path);
    struct stat info
    {
    };
    if (::stat(name.constData(), &info) != 0)
        return details;
    details.size = qint64(info.st_size);
    details.modified = qint64(info.st_mtime);
    if (S_ISREG(info.st_mode) && hasTagFormat(path))
        readTags(name, details);
    return details;
}

} // namespace nubo::tags
