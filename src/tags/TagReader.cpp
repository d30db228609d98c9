// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagReader.h"

#include "platform/Windows1252.h"
#include "tags/GenreTable.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMimeDatabase>

namespace nubo::tags {

namespace {

constexpr qsizetype kTagSize = 128;
const QString kCrLf = QStringLiteral("\r\n");

// One field of the tag: 0-based offset and width inside the 128 bytes.
struct Field
{
    qsizetype offset;
    qsizetype width;
};

constexpr Field kTitle{3, 30};
constexpr Field kArtist{33, 30};
constexpr Field kAlbum{63, 30};
constexpr Field kYear{93, 4};
constexpr Field kComment{97, 30};
constexpr qsizetype kGenreOffset = 127;

// Fields are taken as stored: no trimming, and zero bytes stay in the text.
QString cut(const QByteArray& tail, Field field)
{
    return platform::decodeWindows1252(tail.mid(field.offset, field.width));
}

// A field is shown only when it is not all blanks; zero-byte padding is not blank.
bool isShown(const QString& value)
{
    return value != QString(value.size(), QLatin1Char(' '));
}

void appendLine(QString& text, const QString& label, const QString& value)
{
    if (isShown(value))
        text += kCrLf + label + value;
}

} // namespace

bool IsMpegAudioFile(const QString& path)
{
    // An existing file, hidden or not; a folder named like one is not audio.
    if (path.isEmpty() || !QFileInfo(path).isFile())
        return false;
    // A substring rule over the whole path, not an extension test: "a.mp3.txt" passes too.
    for (const char* marker : {".mp3", ".mp2", ".mp1"}) {
        if (path.contains(QLatin1String(marker), Qt::CaseInsensitive))
            return true;
    }
    return false;
}

QByteArray readTagBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const qint64 length = file.size();
    if (length < kTagSize || !file.seek(length - kTagSize))
        return {};
    QByteArray tail = file.read(kTagSize);
    return tail.size() == kTagSize ? tail : QByteArray();
}

QString tagText(const QByteArray& tail, const QString& currentText, CurrentTag* tag)
{
    if (tail.size() != kTagSize || !tail.startsWith("TAG"))
        return QStringLiteral("No hay información");

    CurrentTag values;
    values.title = cut(tail, kTitle);
    values.artist = cut(tail, kArtist);
    values.album = cut(tail, kAlbum);
    values.year = cut(tail, kYear);
    values.comment = cut(tail, kComment);
    const int genre = static_cast<unsigned char>(tail.at(kGenreOffset));
    values.genreName = genreName(genre);

    // A blank title keeps the box's previous text, and the other lines are appended to it.
    QString text = isShown(values.title) ? QStringLiteral("Titulo: ") + values.title : currentText;
    appendLine(text, QStringLiteral("Artista: "), values.artist);
    appendLine(text, QStringLiteral("Album: "), values.album);
    appendLine(text, QStringLiteral("Año: "), values.year);
    appendLine(text, QStringLiteral("Comentario: "), values.comment);
    // Only the genre line ends in a line break of its own.
    if (genre <= kLastGenre)
        text += kCrLf + QStringLiteral("Genero: ") + values.genreName + kCrLf;

    if (tag)
        *tag = values;
    return text;
}

TagTextResult ShowTagText(const QString& path, const QString& currentText)
{
    if (!IsMpegAudioFile(path))
        return {false, currentText};
    return {true, tagText(readTagBytes(path), currentText)};
}

QString FileTypeName(const QString& path)
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        return {};
    const QMimeType type = QMimeDatabase().mimeTypeForFile(info, QMimeDatabase::MatchDefault);
    if (!type.isValid() || type.isDefault())
        return QStringLiteral("<Archivo sin asociación>");
    // The program speaks Spanish whatever the user's locale, so the type name does too: the
    // MIME comment is read in the language of the default locale, set here for that read.
    const QLocale userLocale;
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
    const QString comment = type.comment();
    QLocale::setDefault(userLocale);
    return comment.isEmpty() ? QStringLiteral("<Archivo sin asociación>") : comment;
}

} // namespace nubo::tags
