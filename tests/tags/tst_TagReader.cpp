// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/TagReader.h"

#include <QMimeDatabase>
#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"

using namespace nubo::tags;

namespace {

// A 128-byte tag tail; each field is padded to its width with `pad`.
QByteArray makeTail(const QByteArray& title, const QByteArray& artist, const QByteArray& album,
                    const QByteArray& year, const QByteArray& comment, int genre, char pad = ' ')
{
    auto field = [pad](const QByteArray& value, int width) {
        return value.leftJustified(width, pad, true);
    };
    QByteArray tail = "TAG" + field(title, 30) + field(artist, 30) + field(album, 30) +
                      field(year, 4) + field(comment, 30);
    tail.append(static_cast<char>(genre));
    return tail;
}

QString withZeros(const QString& value, int width)
{
    return value + QString(width - value.size(), QChar(u'\0'));
}

} // namespace

class TestTagReader final : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(m_dir.isValid()); }

    void layout_data()
    {
        QTest::addColumn<QByteArray>("tail");
        QTest::addColumn<QString>("expected");
        const auto padded = [](const char* text) { return QString(text).leftJustified(30); };
        const QString title = "Titulo: " + padded("T");
        QTest::newRow("every field, blank-padded")
            << makeTail("Tema", "Grupo", "Disco", "1998", "Nota", 17)
            << "Titulo: " + padded("Tema") + "\r\nArtista: " + padded("Grupo") +
                   "\r\nAlbum: " + padded("Disco") +
                   QStringLiteral("\r\nAño: 1998\r\nComentario: ") + padded("Nota") +
                   "\r\nGenero: Rock\r\n";
        QTest::newRow("blank fields are left out")
            << makeTail("T", "", "", "2001", "", 0)
            << title + QStringLiteral("\r\nAño: 2001\r\nGenero: Blues\r\n");
        QTest::newRow("genre 148 has no line") << makeTail("T", "", "", "", "", 148) << title;
    }
    void layout()
    {
        QFETCH(QByteArray, tail);
        QFETCH(QString, expected);
        QCOMPARE(tagText(tail, QStringLiteral("antes")), expected);
        const TagTextResult shown = ShowTagText(write("x.mp3", "audio" + tail), "antes");
        QVERIFY(shown.isMpegAudio);
        QCOMPARE(shown.text, expected);
    }

    void blankTitleAppendsToCurrentText()
    {
        const QByteArray tail = makeTail("", "Grupo", "", "", "", 255);
        const QString artist = QStringLiteral("\r\nArtista: ") + QString("Grupo").leftJustified(30);
        QCOMPARE(tagText(tail, QStringLiteral("Titulo: previo")),
                 QStringLiteral("Titulo: previo") + artist);
        QCOMPARE(tagText(tail, QString()), artist);
        QCOMPARE(tagText(makeTail("", "", "", "", "", 200), QStringLiteral("igual")),
                 QStringLiteral("igual"));
    }

    void zeroPaddingIsKeptAndTextIsWindows1252()
    {
        CurrentTag tag;
        const QString text = tagText(makeTail("Tema", "", "", "", "", 13, '\0'), QString(), &tag);
        QCOMPARE(tag.year, withZeros("", 4));
        QCOMPARE(tag.genreName, QStringLiteral("Pop"));
        QVERIFY(text.contains("\r\nComentario: " + withZeros("", 30) + "\r\nGenero: Pop\r\n"));
        // The bytes are Windows-1252 text.
        tagText(makeTail("Ca\xf1\xf3n \x80\x9f\x81", "\x93x\x94", "", "", "", 255), QString(),
                &tag);
        QCOMPARE(tag.title, QString::fromUtf16(u"Cañón €Ÿ\u0081").leftJustified(30));
        QCOMPARE(tag.artist, QString::fromUtf16(u"“x”").leftJustified(30));
        QCOMPARE(tag.genreName, QString());
    }

    void shortOrUnmarkedFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray tail = makeTail("Tema", "", "", "", "", 1);
        QTest::newRow("127 bytes") << tail.left(127);
        QTest::newRow("lower-case marker") << "tag" + tail.mid(3);
        QTest::newRow("marker not at the tail") << tail + QByteArray(10, ' ');
    }
    void shortOrUnmarkedFiles()
    {
        QFETCH(QByteArray, bytes);
        const TagTextResult shown = ShowTagText(write("corto.mp3", bytes), QStringLiteral("antes"));
        QVERIFY(shown.isMpegAudio);
        QCOMPARE(shown.text, QStringLiteral("No hay información"));
    }

    void mpegAudioRule_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("expected");
        QTest::newRow("mp3") << "tema.mp3" << true;
        QTest::newRow("mp1") << "tema.Mp1" << true;
        QTest::newRow("in a folder name") << "musica.mp3s/tema.wav" << true;
        QTest::newRow("other audio") << "tema.wav" << false;
        QTest::newRow("no dot") << "temamp3" << false;
    }
    void mpegAudioRule()
    {
        QFETCH(QString, name);
        QFETCH(bool, expected);
        const QString path = write(name, "audio" + makeTail("Tema", "", "", "", "", 1));
        QCOMPARE(IsMpegAudioFile(path), expected);
        QCOMPARE(ShowTagText(path, "antes").isMpegAudio, expected); // false hides the box
        QVERIFY(!IsMpegAudioFile(m_dir.filePath("falta/" + name)));
        QVERIFY(!ShowTagText(m_dir.filePath("falta/" + name), "antes").isMpegAudio);
        QVERIFY(QDir(m_dir.path()).mkpath("carpeta/" + name)); // a folder is no audio file
        QVERIFY(!IsMpegAudioFile(m_dir.filePath("carpeta/" + name)));
    }

    void fileTypeName()
    {
        const QString text = write("nota.txt", "una línea de texto\n");
        // Spanish whatever the user's locale, as every other text of the program.
        const QLocale user;
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        const QString english = FileTypeName(text);
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const QString german = FileTypeName(text);
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Spain));
        QCOMPARE(english, QMimeDatabase().mimeTypeForName("text/plain").comment());
        QLocale::setDefault(user);
        QCOMPARE(german, english);
        QVERIFY(!english.isEmpty());
        const QString binary = write("datos.zzq", QByteArray::fromHex("00ff13fe0001a5c3009e"));
        QCOMPARE(FileTypeName(binary), QStringLiteral("<Archivo sin asociación>"));
        QCOMPARE(FileTypeName(m_dir.filePath("falta.txt")), QString());
        QCOMPARE(FileTypeName(QString()), QString());
    }

private:
    QString write(const QString& name, const QByteArray& bytes)
    {
        return nubo::test::writtenFile(m_dir.filePath(name), bytes);
    }

    QTemporaryDir m_dir;
};

QTEST_GUILESS_MAIN(TestTagReader)
#include "tst_TagReader.moc"
