// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The tree of tagged MP3 files the tag benchmarks read: copies of a one-second tone, spread
// over folders "discoNNN", each file with its own title, artist, album, genre, year and track.
// Needs NUBO_SOURCE_DIR and TagLib.
#include <QDir>
#include <QFile>
#include <QString>

#include <taglib/fileref.h>
#include <taglib/tag.h>

namespace nubo::bench {

inline TagLib::String tagText(const QString& value)
{
    return TagLib::String(value.toStdString(), TagLib::String::UTF8);
}

inline bool buildTaggedTree(const QString& root, int files, int folders)
{
    const QString source = QStringLiteral(NUBO_SOURCE_DIR "/tests/tags/fixtures/tone.mp3");
    for (int i = 0; i < files; ++i) {
        const QString folder =
            QStringLiteral("%1/disco%2").arg(root).arg(i % folders, 3, 10, QLatin1Char('0'));
        const QString path = QStringLiteral("%1/pista%2.mp3").arg(folder).arg(i);
        if (!QDir().mkpath(folder) || !QFile::copy(source, path))
            return false;
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        TagLib::FileRef ref(QFile::encodeName(path).constData());
        if (ref.isNull())
            return false;
        TagLib::Tag* tag = ref.tag();
        tag->setTitle(tagText(QStringLiteral("Canción número %1").arg(i)));
        tag->setArtist(tagText(QStringLiteral("Intérprete %1").arg(i % 37)));
        tag->setAlbum(tagText(QStringLiteral("Álbum %1").arg(i % folders)));
        tag->setGenre(tagText(QStringLiteral("Folk")));
        tag->setYear(1960 + i % 60);
        tag->setTrack(1 + i / folders);
        if (!ref.save())
            return false;
    }
    return true;
}

} // namespace nubo::bench
