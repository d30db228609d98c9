#include <QTest>

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
    void resolvesFixedRows_data()
    {
        QTest::addColumn<CatalogueRow>("row");
        QTest::addColumn<QString>("path");
        QTest::newRow("root, no such file")
            << row("tema", "DIRECTORIO PRINCIPAL", "MP3", "/d") << "/d/tema.MP3";
        QTest::newRow("no extension") << row("LEAME", "/doc/", "ARCHIVO", "") << "/doc/LEAME";
        QTest::newRow("written on Windows")
            << row("tema", "\\Musica\\Rock\\", "MP3", "D:") << "D:/Musica/Rock/tema.MP3";
    }
    void resolvesFixedRows()
    {
        QFETCH(CatalogueRow, row);
        CatalogueFixture f;
        EntryPathResolver resolver(f.drives);
        QCOMPARE(resolver.ResolveEntryPath(f.catalogue.list(), 0), QString());
        f.catalogue.list().insertAtTop(row);
        QTEST(resolver.ResolveEntryPath(f.catalogue.list(), 0), "path");
    }

    void findsTheFileWhateverTheCaseOfItsExtension()
    {
        CatalogueFixture f;
        const QString path = f.file(QStringLiteral("tema.mp3"));
        f.catalogue.list().insertAtTop(row("tema", "DIRECTORIO PRINCIPAL", "MP3", f.drive));
        EntryPathResolver resolver(f.drives);
        QCOMPARE(resolver.ResolveEntryPath(f.catalogue.list(), 0), path);
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
        f.opener.EnqueueSelectedEntries();
        QVERIFY(f.shell.calls.isEmpty());

        for (const char* n : {"a", "b", "c"})
            f.catalogue.list().insertAtTop(row(QLatin1String(n), "/m/", "MP3", "/d"));
        f.catalogue.list().setSelected(0, true);
        f.catalogue.list().setSelected(2, true);
        f.opener.PlaySelectedEntry(1);
        QCOMPARE(f.shell.calls, QList<Call>({{"open", "/d/m/b.MP3"}}));
        f.shell.calls.clear();
        f.opener.EnqueueSelectedEntries();
        QCOMPARE(f.shell.calls,
                 QList<Call>({{"enqueue", "/d/m/c.MP3"}, {"enqueue", "/d/m/a.MP3"}}));
    }

    void doubleClickNeedsTheOptionAndFallsBackToOpenWith()
    {
        OpenerFixture f;
        f.catalogue.list().insertAtTop(row("a", "/m/", "XYZ", "/d"));
        f.opener.ExecuteOnDoubleClick(0);
        QVERIFY(f.shell.calls.isEmpty());

        f.options.setValue(nubo::core::Option::DblClkExecute, 1);
        f.opener.ExecuteOnDoubleClick(0);
        QCOMPARE(f.shell.calls, QList<Call>({{"open", "/d/m/a.XYZ"}}));

        f.shell.calls.clear();
        f.shell.openResult = nubo::platform::IShell::Result::NoAssociation;
        f.opener.ExecuteOnDoubleClick(0);
        QCOMPARE(f.shell.calls, QList<Call>({{"open", "/d/m/a.XYZ"}, {"openWith", "/d/m/a.XYZ"}}));
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
#include "tst_entryopener.moc"
