// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestFiles.h"
#include "tags/FileProperties.h"
#include "tags/TagReader.h"
#include "tags/TaggedFiles.h"

#include <QTemporaryDir>
#include <QTest>

#include <taglib/id3v1tag.h>
#include <taglib/textidentificationframe.h>

using namespace nubo;
using tags::FileProperties;

namespace {

const QMap<QString, QStringList> kFields{
    {"TITLE", {"Canción del ñandú"}}, {"ARTIST", {"Ana", "Bea"}}, {"ALBUM", {"Álbum"}},
    {"ALBUMARTIST", {"Varios"}},      {"DATE", {"1999"}},         {"TRACKNUMBER", {"7"}},
    {"CONDUCTOR", {"Zubin"}}};
const QByteArray kPicture("\x89PNG\r\n\x1a\n not really a picture", 29);

} // namespace

// Every tag, the audio properties and the cover of real files, as the tag library reads them.
class TestFileProperties final : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void formatsGiveTagsPropertiesAndCover_data()
    {
        QTest::addColumn<QString>("extension");
        QTest::addColumn<int>("channels");
        QTest::newRow("mp3") << "mp3" << 1;
        QTest::newRow("flac") << "flac" << 1;
        QTest::newRow("ogg") << "ogg" << 1;
        QTest::newRow("m4a") << "m4a" << 2; // the encoder's AAC header says two
    }
    void formatsGiveTagsPropertiesAndCover()
    {
        QFETCH(QString, extension);
        QFETCH(int, channels);
        const QString path = m_dir.filePath("tema." + extension);
        QVERIFY(test::writeTagged(path, extension, kFields, kPicture));
        const FileProperties read = tags::readFileProperties(path);
        QVERIFY(read.readable);
        // The usual fields first, the rest of the tag after them.
        QStringList keys;
        for (const tags::TagField& field : read.fields)
            keys.append(field.key);
        QCOMPARE(keys.mid(0, 6),
                 QStringList({"TITLE", "ARTIST", "ALBUM", "ALBUMARTIST", "DATE", "TRACKNUMBER"}));
        QVERIFY2(keys.contains("CONDUCTOR"), qPrintable(keys.join(' ')));
        QCOMPARE(read.value("TITLE"), kFields["TITLE"].first());
        QCOMPARE(read.fields.at(1).values, kFields["ARTIST"]);
        QCOMPARE(read.lengthSeconds, 1);
        QCOMPARE(read.sampleRate, 8000);
        QCOMPARE(read.channels, channels);
        QVERIFY(read.bitrate > 0);
        QCOMPARE(read.picture, kPicture);
        QCOMPARE(tags::scanTagColumns(path), // several values joined, the length as m:ss
                 QStringList({"Canción del ñandú", "Ana; Bea", "Álbum", "1999", "7", "0:01"}));
        // The file's bytes read as the file does.
        const FileProperties fromBytes = tags::readFileProperties(test::fileBytes(path), path);
        QCOMPARE(fromBytes.fields, read.fields);
        QCOMPARE(fromBytes.picture, read.picture);
        QCOMPARE(fromBytes.lengthSeconds, read.lengthSeconds);
    }

    void id3v2TextInEveryEncoding_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<int>("encoding");
        QTest::addColumn<QString>("text");
        const int utf16 = TagLib::String::UTF16, utf8 = TagLib::String::UTF8;
        QTest::newRow("2.3 UTF-16 Spanish") << 3 << utf16 << "Añoranza, cañón y pingüino";
        QTest::newRow("2.3 UTF-16 Greek") << 3 << utf16 << "Καλημέρα κόσμε";
        QTest::newRow("2.3 UTF-16 Japanese") << 3 << utf16 << "こんにちは世界";
        QTest::newRow("2.4 UTF-8 Spanish") << 4 << utf8 << "Añoranza, cañón y pingüino";
        QTest::newRow("2.4 UTF-8 Greek") << 4 << utf8 << "Καλημέρα κόσμε";
        QTest::newRow("2.4 UTF-16 Japanese") << 4 << utf16 << "こんにちは世界";
    }
    void id3v2TextInEveryEncoding()
    {
        QFETCH(int, version);
        QFETCH(int, encoding);
        QFETCH(QString, text);
        const QString path = m_dir.filePath("texto.mp3");
        QVERIFY(test::writeTagged(path, "mp3", {}));
        {
            TagLib::MPEG::File file(QFile::encodeName(path).constData());
            for (const char* id : {"TIT2", "TPE1"}) {
                auto* frame =
                    new TagLib::ID3v2::TextIdentificationFrame(id, TagLib::String::Type(encoding));
                frame->setText(test::taglibText(text));
                file.ID3v2Tag(true)->addFrame(frame);
            }
            QVERIFY(file.save(TagLib::MPEG::File::ID3v2, TagLib::File::StripOthers,
                              TagLib::ID3v2::Version(version), TagLib::File::DoNotDuplicate));
        }
        QCOMPARE(int(test::fileBytes(path).at(3)), version);
        const FileProperties read = tags::readFileProperties(path);
        QCOMPARE(read.value("TITLE"), text);
        QCOMPARE(read.value("ARTIST"), text);
    }

    // The details box keeps to the ID3v1 tag, byte for byte as a tagger writes it; the
    // properties show the ID3v2 one.
    void bothTagsShowEachInItsPlace()
    {
        const QString path = m_dir.filePath("ambas.mp3");
        QVERIFY(test::writeTagged(path, "mp3", {{"TITLE", {"Título de la versión 2"}}}));
        {
            TagLib::MPEG::File file(QFile::encodeName(path).constData());
            TagLib::ID3v1::Tag* v1 = file.ID3v1Tag(true);
            v1->setTitle("Tema");
            v1->setArtist("Grupo");
            v1->setYear(1999);
            v1->setGenre("Synthpop"); // genre 147, which the box names "Synth Pop"
            QVERIFY(file.save(TagLib::MPEG::File::AllTags, TagLib::File::StripNone,
                              TagLib::ID3v2::v4, TagLib::File::DoNotDuplicate));
        }
        QCOMPARE(tags::readFileProperties(path).value("TITLE"), "Título de la versión 2");
        const auto zeros = [](const QString& text) { return text.leftJustified(30, QChar(0)); };
        QCOMPARE(tags::ShowTagText(path, {}).text,
                 "Titulo: " + zeros("Tema") + "\r\nArtista: " + zeros("Grupo") +
                     "\r\nAlbum: " + zeros("") + "\r\nAño: 1999\r\nComentario: " + zeros("") +
                     "\r\nGenero: Synth Pop\r\n");
    }

    // Damaged files give what can be read, the same from bytes as from the file, and never
    // crash or hang. readable: 1 or 0, or -1 where the library may go either way.
    void damagedFiles_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("readable");
        const QByteArray mp3 = test::fileBytes(test::audioFixture("mp3"));
        const QByteArray flac = test::fileBytes(test::audioFixture("flac"));
        QByteArray brokenBlock = flac;
        brokenBlock.replace(5, 3, "\xff\xff\xff"); // the first block runs past the end
        QTest::newRow("empty") << "vacio.mp3" << QByteArray() << 0;
        QTest::newRow("not audio") << "ruido.mp3" << QByteArray(4096, '\xff') << -1;
        QTest::newRow("ID3v2 claims 200 MB")
            << "enorme.mp3" << QByteArray("ID3\x04\x00\x00\x64\x00\x00\x00", 10) + mp3 << -1;
        QTest::newRow("broken FLAC block") << "roto.flac" << brokenBlock << 0;
        QTest::newRow("truncated FLAC") << "corto.flac" << flac.left(60) << -1;
        QTest::newRow("truncated Ogg")
            << "corto.ogg" << test::fileBytes(test::audioFixture("ogg")).left(200) << -1;
        QTest::newRow("truncated M4A")
            << "corto.m4a" << test::fileBytes(test::audioFixture("m4a")).left(100) << -1;
        QTest::newRow("no extension") << "sin_extension" << mp3 << -1;
    }
    void damagedFiles()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, bytes);
        QFETCH(int, readable);
        const QString path = test::writtenFile(m_dir.filePath(name), bytes);
        const FileProperties read = tags::readFileProperties(path);
        QCOMPARE(read.size, bytes.size());
        QVERIFY(!read.typeName.isEmpty());
        if (readable >= 0)
            QCOMPARE(read.readable, bool(readable));
        const FileProperties fromBytes = tags::readFileProperties(bytes, path);
        QCOMPARE(fromBytes.readable, read.readable);
        QCOMPARE(fromBytes.fields, read.fields);
        QCOMPARE(tags::scanTagColumns(path).size(), 6);
    }
};

QTEST_GUILESS_MAIN(TestFileProperties)
#include "tst_FileProperties.moc"
