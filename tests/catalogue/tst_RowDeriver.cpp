// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/RowDeriver.h"

#include "platform/fakes/FakeDrives.h"

#include <QTemporaryDir>
#include <QTest>

#include <array>

using namespace nubo::catalogue;
using nubo::platform::DriveType;
using nubo::platform::FakeDrives;

class TestRowDeriver final : public QObject
{
    Q_OBJECT
private slots:
    void derivesColumns_data()
    {
        QTest::addColumn<QString>("relative");
        QTest::addColumn<QString>("nombre");
        QTest::addColumn<QString>("direccion");
        QTest::addColumn<QString>("formato");
        QTest::addColumn<QString>("leftPath"); // relative to the drive

        const std::array<std::array<const char*, 6>, 5> rows{{
            {"root", "/tema.mp3", "tema", "DIRECTORIO PRINCIPAL", "MP3", "/"},
            {"no extension", "/Musica/LEAME", "LEAME", "/Musica/", "ARCHIVO", "/Musica/"},
            {"dot only in folder", "/Musica.vieja/tema", "tema", "/Musica.vieja/", "ARCHIVO",
             "/Musica.vieja/"},
            {"only extension", "/Musica/.mp3", "", "/Musica/", "MP3", "/Musica/"},
            {"last dot counts", "/Musica/a.b.mp3", "a.b", "/Musica/", "MP3", "/Musica/"},
        }};
        for (const auto& r : rows)
            QTest::newRow(r[0]) << QString(r[1]) << QString(r[2]) << QString(r[3]) << QString(r[4])
                                << QString(r[5]);
    }
    void derivesColumns()
    {
        QFETCH(QString, relative);
        FakeDrives drives;
        drives.add(QStringLiteral("/"), DriveType::Fixed);
        drives.add(QStringLiteral("/media/cd/"), DriveType::CdRom);
        RowDeriver deriver(drives);
        QString path = QStringLiteral("/media/cd") + relative;
        const CatalogueRow row = deriver.derive(path);
        QTEST(row.nombre, "nombre");
        QTEST(row.direccion, "direccion");
        QTEST(row.formato, "formato");
        QCOMPARE(row.unidad, QStringLiteral("/media/cd"));
        QFETCH(QString, leftPath);
        QCOMPARE(path, QStringLiteral("/media/cd") + leftPath);
    }

    void rootVolumeAndBareNames()
    {
        FakeDrives drives;
        drives.add(QStringLiteral("/"), DriveType::Fixed);
        RowDeriver deriver(drives);
        QString path = QStringLiteral("/home/ana/tema.mp3");
        CatalogueRow row = deriver.derive(path);
        QCOMPARE(row.unidad, QString());
        QCOMPARE(row.direccion, QStringLiteral("/home/ana/"));
        // A bare name takes the previous row's name and folder.
        QString first = QStringLiteral("/Musica/Rock/uno.mp3");
        deriver.derive(first);
        QString bare = QStringLiteral("dos.wav");
        row = deriver.derive(bare);
        QCOMPARE(row, (CatalogueRow{"uno", "/Musica/Rock/", {}, "WAV", {}}));
        QCOMPARE(bare, QStringLiteral("dos"));
    }
};

QTEST_GUILESS_MAIN(TestRowDeriver)
#include "tst_RowDeriver.moc"
