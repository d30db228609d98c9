// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

// The ID3 version 1 details of a catalogued file: the MPEG-audio test, the text that the list
// window's details box shows for a tag, and the file-type name shown as the list's tooltip.
namespace nubo::tags {

// The six values of the last tag read, in the order the tag stores them.
struct CurrentTag
{
    QString title;
    QString artist;
    QString album;
    QString year;
    QString comment;
    QString genreName; // empty when the genre byte is above the table
};

// What the details box holds after a file was shown: isMpegAudio false means it is hidden.
struct TagTextResult
{
    bool isMpegAudio;
    QString text;
};

// True when the file exists (hidden files too) and ".mp3", ".mp2" or ".mp1" occurs anywhere in
// the path, whatever the case: a substring rule, so "a.mp3.txt" and "x.mp3s/y.wav" pass.
bool IsMpegAudioFile(const QString& path);

// The details box's text after showing the tag of path, given the text it held before
// (a blank title leaves that text in place and appends the other lines to it).
TagTextResult ShowTagText(const QString& path, const QString& currentText);

// The same layout over the last 128 bytes of a file (fewer bytes count as no tag).
QString tagText(const QByteArray& tail, const QString& currentText, CurrentTag* tag = nullptr);

// The last 128 bytes of the file, or nothing when it is shorter or cannot be read.
QByteArray readTagBytes(const QString& path);

// The description of the file's type in the user's language; "<Archivo sin asociación>" for a
// type nothing is known about, and the empty text for a missing file.
QString FileTypeName(const QString& path);

} // namespace nubo::tags
