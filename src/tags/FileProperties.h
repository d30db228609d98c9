// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// What a music file holds beyond its ID3v1 tag, as the tag library reads it: every tag field,
// the audio properties and the embedded cover picture.
namespace nubo::tags {

// One tag field under the tag library's own key ("TITLE", "ALBUMARTIST", ...).
struct TagField
{
    QString key;
    QStringList values;

    bool operator==(const TagField&) const = default;
};

struct FileProperties
{
    QString path;
    qint64 size = 0;
    QString typeName;
    bool readable = false;  // false: the tag library knows no tags in it (the rest stays empty)
    QList<TagField> fields; // the usual fields first, then the rest in the library's order
    int lengthSeconds = 0;
    int bitrate = 0;    // kbit/s
    int sampleRate = 0; // Hz
    int channels = 0;
    QByteArray picture; // the first embedded picture, as stored (not checked to be an image)
    QString pictureMimeType;

    // The first value of key, or the empty text.
    QString value(const QString& key) const;
};

// The text shown when the tag library cannot read a file.
inline QString unreadableText()
{
    return QStringLiteral("No se pudieron leer las etiquetas de este archivo.");
}

// Everything about the file at path; an unreadable or missing file gives path, size and type.
FileProperties readFileProperties(const QString& path);
// The same over the bytes of a file called name (its extension helps find the format).
FileProperties readFileProperties(const QByteArray& bytes, const QString& name);

// The scan's optional columns: title, artist, album, year, track and duration (m:ss), or six
// empty texts; no picture or type is read, so it is fast.
QStringList scanTagColumns(const QString& path);
QStringList scanTagCaptions();

// A length as minutes and seconds: "3:07", "61:00".
QString formatLength(int seconds);

} // namespace nubo::tags
