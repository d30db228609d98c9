// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/ui/PropertiesWindow.h"

#include <QBuffer>
#include <QImage>
#include <QLabel>
#include <QTest>

#include "WindowControl.h"

using nubo::tags::FileProperties;

namespace {

QByteArray pngBytes(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// The texts of the window's labels, in order.
QStringList labelTexts(QWidget& window)
{
    QStringList texts;
    for (const QLabel* label : window.findChildren<QLabel*>())
        texts.append(label->text());
    return texts;
}

} // namespace

class TestPropertiesWindow final : public QObject
{
    Q_OBJECT

private slots:
    // A picture larger than the room shrinks to fit; bytes that are no image show none; an
    // unreadable file shows its path, size and type and the message instead of tags.
    void showsFieldsPictureOrTheMessage_data()
    {
        QTest::addColumn<bool>("readable");
        QTest::addColumn<QByteArray>("picture");
        QTest::addColumn<int>("pictureWidth");
        QTest::newRow("cover") << true << pngBytes(800, 400) << 220;
        QTest::newRow("no image") << true << QByteArray("JFIF? no") << 0;
        QTest::newRow("unreadable") << false << QByteArray() << 0;
    }
    void showsFieldsPictureOrTheMessage()
    {
        QFETCH(bool, readable);
        QFETCH(QByteArray, picture);
        QFETCH(int, pictureWidth);
        FileProperties p;
        p.path = QStringLiteral("/música/tema.flac");
        p.size = 12345;
        p.typeName = QStringLiteral("Audio FLAC");
        p.readable = readable;
        p.fields = {{"TITLE", {"Καλημέρα"}}, {"ARTIST", {"Ana", "Bea"}}, {"MOOD", {"alegre"}}};
        p.lengthSeconds = 187;
        p.picture = picture;
        nubo::tags::ui::PropertiesWindow window;
        window.showProperties(p);
        window.show();
        QCOMPARE(window.windowTitle(), "Propiedades de tema.flac");
        const QStringList texts = labelTexts(window);
        for (const char* text : {"/música/tema.flac", "12345 bytes", "Audio FLAC"})
            QVERIFY2(texts.contains(text), text);
        QCOMPARE(texts.contains("No se pudieron leer las etiquetas de este archivo."), !readable);
        for (const char* text : {"Título:", "Καλημέρα", "Ana\nBea", "MOOD:", "3:07"})
            QCOMPARE(texts.contains(text), readable);
        auto* shown = nubo::test::control<QLabel>(window, "picture");
        QCOMPARE(shown->isVisible(), pictureWidth > 0);
        if (pictureWidth > 0)
            QCOMPARE(shown->pixmap().size(), QSize(220, 110));
    }

    // A file out of reach: what the catalogue keeps of it and of its disc, or that it keeps
    // nothing of the disc; no picture.
    void showsWhatACatalogueKeeps()
    {
        nubo::tags::ui::PropertiesWindow window;
        FileProperties found;
        found.readable = true;
        found.picture = pngBytes(10, 10);
        window.showProperties(found);
        window.showKnownFields(QStringLiteral("tema.MP3"),
                               {{QStringLiteral("ARTISTA"), QStringLiteral("Mercedes Quiroga")}},
                               {{QStringLiteral("UBICACION"), QStringLiteral("Estante 3")}});
        QCOMPARE(window.windowTitle(), QStringLiteral("Propiedades de tema.MP3"));
        const QStringList texts = labelTexts(window);
        for (const char* text :
             {"ARTISTA:", "Mercedes Quiroga", "Disco", "UBICACION:", "Estante 3"})
            QVERIFY2(texts.contains(QLatin1String(text)), text);
        QVERIFY(window.findChild<QLabel*>(QStringLiteral("picture"))->isHidden());
        window.showKnownFields(QStringLiteral("tema.MP3"), {}, {});
        QVERIFY(labelTexts(window).contains(
            QStringLiteral("El catálogo no guarda datos de este disco.")));
    }
};

QTEST_MAIN(TestPropertiesWindow)
#include "tst_PropertiesWindow.moc"
