// SPDX-License-Identifier: GPL-3.0-or-later
#include "SearchFakes.h"

#include <QDateTime>
#include <QTest>

using namespace nubo;
using platform::MessageAnswer;

class TestSearchEngine final : public QObject
{
    Q_OBJECT

    // /m/ holds three songs and a folder with two more; every listed name is a file.
    static void fillTree(platform::FakeDirectoryReader& reader)
    {
        reader.addFolder("/m/", {"a.mp3", "b.mp3", "c.mp3", "notas.txt", "sub/"});
        reader.addFolder("/m/sub/", {"d.mp3", "e.mp3"});
    }

    struct Rig : test::SearchRig
    {
        platform::FakeDirectoryReader reader;
        Rig() : test::SearchRig(reader)
        {
            fillTree(reader);
            host.isFile = [this](const QString& p) {
                return !p.endsWith(QLatin1Char('.')) && !reader.folders.contains(p + '/');
            };
            drives.add("/", platform::DriveType::Fixed);
            drives.add("/m", platform::DriveType::Fixed);
            window.drive = "/";
        }
    };

private slots:
    void aSearchReportsItsMatchesAndRestoresTheWindow()
    {
        Rig rig;
        // Each report is seen as it is made: while rows arrive the window says it searches.
        QSignalSpy menuCaptions(&rig.engine, &search::SearchEngine::findMenuCaptionChanged);
        QStringList seenWhileWalking;
        rig.host.onAdd = [&](int) {
            seenWhileWalking << rig.caption() << rig.last(menuCaptions).toString()
                             << QString::number(rig.isBusy());
        };
        rig.searchFolder("/m");
        QCOMPARE(seenWhileWalking.mid(0, 3),
                 (QStringList{"Realizando la Búsqueda solicitada...", "&Parar!", "1"}));
        QCOMPARE(rig.last(menuCaptions).toString(), QStringLiteral("&Buscar Archivo(s)..."));
        QCOMPARE(rig.engine.StartPath, QStringLiteral("/m/"));
        QCOMPARE(rig.host.rows.size(), 5);
        QCOMPARE(rig.caption(), QStringLiteral("La Búsqueda ha finalizado con exito"));
        QCOMPARE(rig.message(), QStringLiteral("Han sido agregados 5 archivos a la lista"));
        QVERIFY(!rig.findMenuVisible() && !rig.isBusy() && rig.host.folderStrip.isEmpty());
        QVERIFY(!rig.listShown.isEmpty() && !rig.window.shown);
        QCOMPARE(rig.ends.size(), 1);
        QVERIFY(!rig.engine.walker().Searching && !rig.engine.walker().CollectFiles);
    }

    // Names that are not UTF-8 are added as Windows-1252 shows them, and the end message says
    // how many there were; the command line's host leaves them out, as before.
    void namesThatAreNotUtf8AreAddedAndCounted_data()
    {
        QTest::addColumn<bool>("taken");
        QTest::newRow("list window") << true;
        QTest::newRow("command line") << false;
    }
    void namesThatAreNotUtf8AreAddedAndCounted()
    {
        QFETCH(bool, taken);
        Rig rig;
        rig.host.takesUndecodable = taken;
        QList<platform::DirEntry>& top = rig.reader.folders["/m/"];
        top.append({QStringLiteral("Canción.mp3"), false, true, false, true, "Canci\xf3n.mp3"});
        top.append({QStringLiteral("Música"), true, false, false, true, "M\xfasica"});
        rig.reader.addFolder("/m/Música/", {"tema.mp3"});
        rig.searchFolder("/m");
        QCOMPARE(rig.host.undecodable, (QStringList{"/m/Música/", "/m/Canción.mp3"}));
        QCOMPARE(rig.host.known.contains("/m/Canción.mp3"), taken);
        QCOMPARE(rig.host.offered.contains("/m/Música/tema.mp3"), taken);
        QCOMPARE(rig.message(),
                 taken ? QStringLiteral("Han sido agregados 7 archivos a la lista (2 nombres no "
                                        "estaban en UTF-8: se muestran como Windows-1252)")
                       : QStringLiteral("Han sido agregados 6 archivos a la lista"));
    }

    void starDotStarCountsRefusedFoldersInTheMessage()
    {
        Rig rig;
        rig.searchFolder("/m", "*.*");
        // Six files added; ".", "..", "sub" at the top and "." and ".." below are refused.
        QCOMPARE(rig.host.rows.size(), 6);
        QVERIFY(rig.host.offered.contains("/m/sub"));
        QCOMPARE(rig.message(), QStringLiteral("Han sido agregados 11 archivos a la lista"));
    }

    void severalPatternsFindEachKind()
    {
        Rig rig;
        rig.searchFolder("/m", "*.txt; d.*");
        QCOMPARE(rig.host.rows, (QStringList{"/m/notas.txt", "/m/sub/d.mp3"}));
        QCOMPARE(rig.message(), QStringLiteral("Han sido agregados 2 archivos a la lista"));
    }

    void emptyMaskDoesNothingButTheFirstSteps()
    {
        Rig rig;
        rig.searchFolder("/m", QString());
        QVERIFY(rig.host.rows.isEmpty() && rig.findMenuVisible());
        QVERIFY(rig.messages.isEmpty());
        QCOMPARE(rig.ends.size(), 0); // it ends before the flash starts
    }

    void aStopGivesTheRealGrowthAndStaysForLaterSearches()
    {
        Rig rig;
        rig.host.rows = {"/old/x.mp3"};
        rig.host.onAdd = [&](int rows) {
            if (rows == 3)
                rig.engine.RunSearch(); // the menu entry pressed again
        };
        rig.searchFolder("/m");
        QCOMPARE(rig.host.rows.size(), 3);
        QCOMPARE(rig.caption(), QStringLiteral("La Búsqueda ha sido cancelada por el usuario"));
        QCOMPARE(rig.message(), QStringLiteral("Han sido agregados 2 archivos a la lista"));
        QVERIFY(!rig.findMenuVisible());
        QVERIFY(rig.engine.CancelRequested);

        rig.host.onAdd = nullptr;
        rig.searchFolder("/m");
        QCOMPARE(rig.host.rows.size(), 8);
        QCOMPARE(rig.caption(), QStringLiteral("La Búsqueda ha sido cancelada por el usuario"));
        QCOMPARE(rig.message(), QStringLiteral("Han sido agregados 5 archivos a la lista"));
    }

    void floppyLettersDecideHowOftenTheTreeIsWalked_data()
    {
        QTest::addColumn<bool>("a");
        QTest::addColumn<bool>("b");
        QTest::addColumn<int>("rows");
        QTest::newRow("neither") << false << false << 0;
        QTest::newRow("both") << true << true << 10;
    }
    void floppyLettersDecideHowOftenTheTreeIsWalked()
    {
        QFETCH(bool, a);
        QFETCH(bool, b);
        QFETCH(int, rows);
        Rig rig;
        rig.drives.floppies = {a, b};
        rig.searchFolder("/m");
        QCOMPARE(rig.host.rows.size(), rows);
        QCOMPARE(rig.message(),
                 QStringLiteral("Han sido agregados %1 archivos a la lista").arg(rows));
    }

    void theRootOfALabelledDiskFindsNothing()
    {
        Rig rig;
        rig.drives.list.clear();
        rig.drives.add("/", platform::DriveType::Fixed, "sistema");
        rig.reader.addFolder("/", {"raiz.mp3"});
        rig.window.drive = "/ [sistema]";
        rig.searchFolder("/");
        QCOMPARE(rig.engine.StartPath, QStringLiteral("/ [sistema]/"));
        QVERIFY(rig.host.rows.isEmpty());

        rig.drives.list.clear();
        rig.drives.add("/", platform::DriveType::Fixed);
        rig.window.drive = "/";
        rig.searchFolder("/");
        QCOMPARE(rig.engine.StartPath, QStringLiteral("/"));
        QCOMPARE(rig.host.rows, QStringList{"/raiz.mp3"});
    }

    void onlyALabelledDrivesOwnTextLosesItsLabel()
    {
        Rig rig;
        rig.drives.list.clear();
        rig.drives.add("/", platform::DriveType::Fixed, "sistema");
        rig.drives.add("/media/ana/Disco [2]", platform::DriveType::Removable);
        rig.engine.ShowVolumeDetails("/ [sistema]");
        rig.engine.ShowVolumeDetails("/media/ana/Disco [2]");
        rig.engine.ShowVolumeDetails("/media/ana/Otro [x]");
        QCOMPARE(rig.volumes.asked,
                 (QStringList{"/", "/media/ana/Disco [2]", "/media/ana/Otro [x]"}));
    }

    // A folder chosen in the tree on another volume than the drive list's: every field of the
    // panel, and the space, describe the folder's volume.
    void theVolumePanelDescribesTheSearchedFolder()
    {
        Rig rig;
        rig.volumes.detailsByPath.insert("/m", {"DISCO", 7, 255, 1, "iso9660"});
        rig.volumes.detailsByPath.insert("/", {"", 9, 255, 2, "ext4"});
        rig.window.folder = "/m/sub";
        rig.dialogs.inputAnswers.enqueue(QStringLiteral("Rock"));
        rig.engine.StartSearch("/");
        QCOMPARE(rig.volumes.asked.mid(0, 2), (QStringList{"/m", "/m/"}));
        QCOMPARE(rig.last(rig.volumeDetails, 2).toString(), QStringLiteral("iso9660"));
    }

    // Every search that walks records the disc of the folder searched, stopped or not; an
    // optical disc's details are read in the order found.
    void eachSearchRecordsItsDisc_data()
    {
        QTest::addColumn<platform::DriveType>("type");
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("carpeta");
        QTest::newRow("disk folder") << platform::DriveType::Fixed << "/m/sub"
                                     << "/sub/";
        QTest::newRow("optical root") << platform::DriveType::CdRom << "/m"
                                      << "/";
    }
    void eachSearchRecordsItsDisc()
    {
        QFETCH(platform::DriveType, type);
        QFETCH(QString, folder);
        QFETCH(QString, carpeta);
        Rig rig;
        rig.drives.list.last().type = type;
        rig.volumes.detailsByPath.insert("/m", {"DISCO 1", 0x80001234, 255, 1, "iso9660"});
        rig.volumes.spaceByPath.insert("/m", {700'000'000, 0});
        const qint64 before = QDateTime::currentSecsSinceEpoch();
        rig.searchFolder(folder, "*.mp3");
        QCOMPARE(rig.host.discs.size(), 1);
        const core::DiscRecord& disc = rig.host.discs.first();
        QCOMPARE(disc.etiqueta, QStringLiteral("DISCO 1"));
        QCOMPARE(disc.serie, QStringLiteral("-2147478988"));
        QCOMPARE(disc.sistema, QStringLiteral("iso9660"));
        QCOMPARE(disc.capacidad, 700'000'000);
        QCOMPARE(disc.libre, 0);
        QVERIFY(disc.fecha >= before && disc.fecha <= QDateTime::currentSecsSinceEpoch());
        QCOMPARE(disc.carpeta, carpeta);
        QCOMPARE(disc.mascara, QStringLiteral("*.mp3"));
        QCOMPARE(rig.host.readsInOrder, type == platform::DriveType::CdRom);
        QVERIFY(!rig.host.walking);

        rig.host.onAdd = [&rig](int) { rig.engine.requestStop(); };
        rig.searchFolder(folder, "*.MP3");
        QCOMPARE(rig.host.discs.size(), 2);
        QCOMPARE(rig.host.discs.last().mascara, QStringLiteral("*.MP3"));
        rig.searchFolder(folder, QString()); // an empty mask walks nothing, records nothing
        QCOMPARE(rig.host.discs.size(), 2);
    }

    void theMatchOverflowAbandonsTheWalkAndKeepsTheCount()
    {
        Rig rig;
        rig.reader.generator =
            [](const QString& folder) -> std::optional<QList<platform::DirEntry>> {
            QList<platform::DirEntry> entries;
            if (folder == QLatin1String("/big/")) {
                for (int i = 0; i < 33000; ++i)
                    entries.append({QStringLiteral("t%1.mp3").arg(i), false});
            }
            return entries;
        };
        rig.drives.floppies = {true, true};
        rig.searchFolder("/big");
        // The 32,768th name is added before its count overflows; the second walk overflows
        // at its first name.
        QCOMPARE(rig.host.rows.size(), 32768 + 1);
        QCOMPARE(rig.engine.walker().MatchCount.value(), 32767);
        QCOMPARE(rig.message(), QStringLiteral("Han sido agregados 32767 archivos a la lista"));
        QCOMPARE(rig.caption(), QStringLiteral("La Búsqueda ha finalizado con exito"));
        QCOMPARE(rig.host.batchDepth, 0);
        // The stop is then told in a box of its own, with the folder and the way round it.
        QCOMPARE(rig.dialogs.asked.size(), 1);
        const QString told = rig.dialogs.asked[0].text;
        QVERIFY2(told.contains("32.767 archivos") && told.contains("/big/") &&
                     told.contains("nubo-cli scan"),
                 qPrintable(told));
        // A later search that ends normally says nothing more.
        rig.drives.floppies = {true, false};
        rig.searchFolder("/m");
        QCOMPARE(rig.dialogs.asked.size(), 1);
    }

    void theGroupNameAnswers_data()
    {
        QTest::addColumn<std::optional<QString>>("answer");
        QTest::addColumn<MessageAnswer>("cancel");
        QTest::addColumn<QString>("group");
        QTest::addColumn<bool>("searched");
        QTest::newRow("a name") << std::optional<QString>("Rock") << MessageAnswer::Yes << "Rock"
                                << true;
        QTest::newRow("blank, go on")
            << std::optional<QString>("  ") << MessageAnswer::No << "NO ESPECIFICADO" << true;
        QTest::newRow("cancel, go on")
            << std::optional<QString>() << MessageAnswer::No << "NO ESPECIFICADO" << true;
        QTest::newRow("blank, stop")
            << std::optional<QString>("") << MessageAnswer::Yes << "" << false;
    }
    void theGroupNameAnswers()
    {
        QFETCH(std::optional<QString>, answer);
        QFETCH(MessageAnswer, cancel);
        QFETCH(QString, group);
        QFETCH(bool, searched);
        Rig rig;
        rig.window.folder = "/m";
        rig.host.volume = "DISCO";
        rig.dialogs.inputAnswers.enqueue(answer);
        rig.dialogs.messageAnswers.enqueue(cancel);
        rig.engine.StartSearch("/m");
        QCOMPARE(rig.groupName(), group);
        QCOMPARE(!rig.host.rows.isEmpty(), searched);
        if (answer && answer->trimmed().isEmpty())
            QCOMPARE(rig.dialogs.asked.last().buttons, platform::MessageButtons::YesNo);
        if (searched)
            QCOMPARE(rig.host.volume, group);
    }

    // /dev/sr0 holds a disc the desktop has not mounted; mounting it puts it at /media/cd.
    static void mountableDisc(Rig& rig)
    {
        rig.drives.addEmptyCd("/dev/sr0");
        rig.tray.openable = {"/dev/sr0"};
        rig.reader.addFolder("/media/cd/", {"pista.mp3"});
        rig.volumes.detailsByPath.insert("/media/cd", {"MI CD", 1, 255, 0, "iso9660"});
        rig.window.folder = "/media/cd";
        rig.tray.onMount = [&rig](const QString& device) {
            rig.drives.list.removeLast();
            rig.drives.add("/media/cd", platform::DriveType::CdRom);
            rig.drives.list.last().device = device;
            return QStringLiteral("/media/cd");
        };
    }

    // A disc that is in but not mounted is mounted with the tray shut: a data disc is searched
    // after the group question alone, an audio disc (nothing to mount) holds no files.
    void aDiscInTheDriveIsMountedNotEjected_data()
    {
        QTest::addColumn<bool>("data");
        QTest::newRow("data disc") << true;
        QTest::newRow("audio disc") << false;
    }
    void aDiscInTheDriveIsMountedNotEjected()
    {
        QFETCH(bool, data);
        Rig rig;
        mountableDisc(rig);
        if (!data)
            rig.tray.onMount = nullptr;
        rig.tray.withMedium = {"/dev/sr0"};
        rig.engine.StartSearch("/dev/sr0");
        QCOMPARE(rig.tray.log, QStringList{"mount /dev/sr0"});
        QCOMPARE(rig.dialogs.asked.size(), 1);
        if (!data) {
            QCOMPARE(rig.dialogs.asked[0].text,
                     QStringLiteral("El disco de la unidad no contiene archivos"));
            QVERIFY(rig.host.rows.isEmpty());
            return;
        }
        QCOMPARE(rig.dialogs.asked[0].kind, QStringLiteral("input")); // the group, no prompt
        QCOMPARE(rig.volumes.asked.first(), QStringLiteral("/media/cd"));
        QCOMPARE(rig.groupName(), QStringLiteral("MI CD"));
        QCOMPARE(rig.host.rows, QStringList{"/media/cd/pista.mp3"});
    }

    void aDiscInsertedAtThePromptIsSearchedAfterOneQuestion()
    {
        Rig rig;
        mountableDisc(rig);
        rig.tray.loadedOnShut = {"/dev/sr0"};
        rig.engine.StartSearch("/dev/sr0");
        QCOMPARE(rig.dialogs.asked.size(), 2);
        QCOMPARE(rig.dialogs.asked[0].title, QStringLiteral("No hay CD en la bandeja"));
        QCOMPARE(rig.dialogs.asked[1].kind, QStringLiteral("input"));
        QCOMPARE(rig.tray.log.filter("eject").size(), 1);
        QCOMPARE(rig.tray.log.last(), QStringLiteral("mount /dev/sr0"));
        QVERIFY(!rig.volumes.asked.contains("/dev/sr0"));
        QCOMPARE(rig.host.rows, QStringList{"/media/cd/pista.mp3"});
    }

    void driveErrors()
    {
        Rig rig;
        rig.drives.addEmptyCd("/dev/sr0");
        rig.tray.openable = {"/dev/sr0"};
        rig.dialogs.messageAnswers.enqueue(MessageAnswer::Ok);
        rig.dialogs.messageAnswers.enqueue(MessageAnswer::Cancel);
        rig.engine.StartSearch("/dev/sr0"); // no disc: the tray opens and the question repeats
        QCOMPARE(rig.dialogs.asked.size(), 2);
        QCOMPARE(rig.dialogs.asked[0].buttons, platform::MessageButtons::OkCancel);
        QCOMPARE(rig.tray.log, (QStringList{"open /dev/sr0", "eject 1", "close 1", "open /dev/sr0",
                                            "shut 2", "close 2", "open /dev/sr0", "eject 3",
                                            "close 3", "open /dev/sr0", "shut 4", "close 4"}));
        QCOMPARE(rig.cdTray.CdDeviceId, -1);
        rig.window.errorFor.insert("/x", 5); // any other error is reported by its number
        rig.engine.StartSearch("/x");
        QVERIFY(rig.dialogs.asked[2].text.endsWith(QStringLiteral(" 5")));
    }
};

QTEST_GUILESS_MAIN(TestSearchEngine)
#include "tst_SearchEngine.moc"
