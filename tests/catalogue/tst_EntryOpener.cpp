// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include <functional>

#include "CatalogueFixture.h"

using namespace nubo::catalogue;
using nubo::platform::DriveType;
using Call = QPair<QString, QString>;

namespace {

CatalogueRow row(const QString& nombre, const QString& direccion, const QString& formato,
                 const QString& unidad)
{
    return {nombre, direccion, QStringLiteral("G"), formato, unidad};
}

} // namespace

class TestEntryOpener final : public QObject
{
    Q_OBJECT
private slots:
    // "<C>" stands for the fixture's drive, which holds tema.mp3.
    void resolvesFixedRows_data()
    {
        QTest::addColumn<CatalogueRow>("row");
        QTest::addColumn<QString>("path");
        QTest::newRow("root, no such file")
            << row("tema", "DIRECTORIO PRINCIPAL", "MP3", "/d") << "/d/tema.MP3";
        QTest::newRow("the file's own case")
            << row("tema", "DIRECTORIO PRINCIPAL", "MP3", "<C>") << "<C>/tema.mp3";
        QTest::newRow("no extension") << row("LEAME", "/doc/", "ARCHIVO", "") << "/doc/LEAME";
        QTest::newRow("written on Windows")
            << row("tema", "\\Musica\\Rock\\", "MP3", "D:") << "D:/Musica/Rock/tema.MP3";
    }
    void resolvesFixedRows()
    {
        QFETCH(CatalogueRow, row);
        QFETCH(QString, path);
        CatalogueFixture f;
        f.file(QStringLiteral("tema.mp3"));
        EntryPathResolver resolver(f.drives);
        QCOMPARE(resolver.ResolveEntryPath(f.catalogue.list(), 0), QString());
        row.unidad.replace(QStringLiteral("<C>"), f.drive);
        f.catalogue.list().insertAtTop(row);
        QCOMPARE(resolver.ResolveEntryPath(f.catalogue.list(), 0), path.replace("<C>", f.drive));
    }

    void walksTheDriveListLastToFirst()
    {
        CatalogueFixture f;
        const QString d1 = f.dir.path() + QStringLiteral("/D1");
        const QString d2 = f.dir.path() + QStringLiteral("/D2");
        const QString usb = f.dir.path() + QStringLiteral("/USB");
        for (const QString& d : {d1, d2, usb})
            nubo::test::writeFile(d + QStringLiteral("/Musica/tema.mp3"));
        f.drives.list.clear();
        f.drives.add(d1, DriveType::Fixed);
        f.drives.add(d2 + QStringLiteral("/"), DriveType::Fixed, QStringLiteral("CD"));
        f.drives.add(usb, DriveType::Removable);
        f.drives.add(f.dir.path() + QStringLiteral("/Vacia"), DriveType::CdRom);
        f.catalogue.list().insertAtTop(row("tema", "\\Musica\\", "MP3", "NN"));
        EntryPathResolver resolver(f.drives);
        const CatalogueList& list = f.catalogue.list();
        // The removable drive stands before the last entry: the walk gives up there.
        QCOMPARE(resolver.ResolveEntryPath(list, 0), QString());

        // A labelled disk's entry text stands for its mount point; a folder named like one
        // ("Disco [2]") keeps its whole name.
        resolver.setDriveList([&] { return QStringList{d1, usb, d2 + "/ [CD]", d1 + "/x"}; });
        QCOMPARE(resolver.ResolveEntryPath(list, 0), d2 + QStringLiteral("/Musica/tema.mp3"));
        const QString bracketed = f.dir.path() + QStringLiteral("/Disco [2]");
        nubo::test::writeFile(bracketed + QStringLiteral("/Musica/tema.mp3"));
        resolver.setDriveList([&] { return QStringList{d1 + "/x", bracketed}; });
        QCOMPARE(resolver.ResolveEntryPath(list, 0),
                 bracketed + QStringLiteral("/Musica/tema.mp3"));
        resolver.setDriveList([&] { return QStringList{d1 + "/x"}; });
        QCOMPARE(resolver.ResolveEntryPath(list, 0), QString());
    }

    void playsTheFocusedRowAndQueuesTheSelected()
    {
        OpenerFixture f;
        f.opener.PlaySelectedEntry(0);
        f.opener.EnqueueSelectedEntries({0});
        QVERIFY(f.shell.calls.isEmpty());

        for (const char* n : {"a", "b", "c"}) {
            f.file(QStringLiteral("m/%1.MP3").arg(QLatin1String(n)));
            f.catalogue.list().insertAtTop(row(QLatin1String(n), "/m/", "MP3", f.drive));
        }
        f.opener.PlaySelectedEntry(1);
        QCOMPARE(f.shell.calls, QList<Call>({{"open", f.drive + "/m/b.MP3"}}));
        f.shell.calls.clear();
        f.opener.EnqueueSelectedEntries({2, 0});
        QCOMPARE(f.shell.calls, QList<Call>({{"enqueue", f.drive + "/m/c.MP3"},
                                             {"enqueue", f.drive + "/m/a.MP3"}}));
    }

    // A file that is gone is named on the message line, and a disc row names its group.
    void aMissingFileIsNamedNotOpened()
    {
        OpenerFixture f;
        f.options.setValue(nubo::core::Option::DblClkExecute, 1);
        f.catalogue.list().insertAtTop(row("tema", "/m/", "MP3", f.drive));
        f.opener.PlaySelectedEntry(0);
        QCOMPARE(f.catalogue.info().text(),
                 QStringLiteral("No se encuentra el archivo ") + f.drive + "/m/tema.MP3");
        QCOMPARE(f.catalogue.info().colour(), 0xFFFF00u);

        f.catalogue.list().insertAtTop({"otro", "\\Rock\\", "Disco 7", "WAV", "NN"});
        for (const auto& open :
             {std::function<void()>([&] { f.opener.PlaySelectedEntry(0); }),
              std::function<void()>([&] { f.opener.ExecuteOnDoubleClick(0); }),
              std::function<void()>([&] { f.opener.EnqueueSelectedEntries({0}); })}) {
            f.catalogue.ShowInfoMessage({}, 10, 0);
            open();
            QCOMPARE(f.catalogue.info().text(),
                     QStringLiteral("No se encuentra /Rock/otro.WAV: inserte el disco del grupo "
                                    "Disco 7"));
        }
        QVERIFY(f.shell.calls.isEmpty());
    }

    // A file listed under a name that is not UTF-8 shows as Windows-1252 reads it; opening it
    // by that name says why it cannot, rather than that it is gone.
    void aNameThatIsNotUtf8IsExplained()
    {
        OpenerFixture f;
        QDir().mkpath(f.drive + "/m");
        const QByteArray raw = QFile::encodeName(f.drive) + "/m/Canci\xf3n.mp3";
        const nubo::test::RemovedAtEnd rawName(raw);
        QVERIFY(nubo::test::writeRawName(raw));
        f.catalogue.list().insertAtTop(row("Canción", "/m/", "mp3", f.drive));
        f.opener.PlaySelectedEntry(0);
        QCOMPARE(f.catalogue.info().text(),
                 "No se puede abrir " + f.drive +
                     "/m/Canción.mp3: su nombre en el disco no está en UTF-8 y se muestra como "
                     "Windows-1252");
        QVERIFY(f.shell.calls.isEmpty());
    }

    void doubleClickNeedsTheOptionAndFallsBackToOpenWith()
    {
        OpenerFixture f;
        const QString path = f.file(QStringLiteral("m/a.XYZ"));
        f.catalogue.list().insertAtTop(row("a", "/m/", "XYZ", f.drive));
        f.opener.ExecuteOnDoubleClick(0);
        QVERIFY(f.shell.calls.isEmpty());

        f.options.setValue(nubo::core::Option::DblClkExecute, 1);
        f.opener.ExecuteOnDoubleClick(0);
        QCOMPARE(f.shell.calls, QList<Call>({{"open", path}}));

        f.shell.calls.clear();
        f.shell.openResult = nubo::platform::IShell::Result::NoAssociation;
        f.opener.ExecuteOnDoubleClick(0);
        QCOMPARE(f.shell.calls, QList<Call>({{"open", path}, {"openWith", path}}));
        QCOMPARE(f.catalogue.info().text(), QStringLiteral("Info Adicional"));

        f.shell.openWithResult = false;
        f.opener.ExecuteOnDoubleClick(0);
        QCOMPARE(f.catalogue.info().text(),
                 QStringLiteral(
                     "El archivo no existe o la extencion no esta asociada a ninguna aplicacion"));
        QCOMPARE(f.catalogue.info().colour(), 0xFFFF00u);
    }
};

QTEST_GUILESS_MAIN(TestEntryOpener)
#include "tst_EntryOpener.moc"
