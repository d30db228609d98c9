// SPDX-License-Identifier: GPL-3.0-or-later
#include "SearchFakes.h"
#include "TestFiles.h"
#include "platform/Windows1252.h"
#include "platform/linux/LinuxDirectoryReader.h"
#include "search/FolderWalker.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace nubo;

class TestFolderWalker final : public QObject
{
    Q_OBJECT

    // Starts a walk of root for mask, as a search does.
    static search::FolderWalker::WalkEnd walk(search::FolderWalker& walker, const QString& root,
                                              const QString& mask = QStringLiteral("*.mp3"))
    {
        walker.SearchMask = mask;
        walker.Searching = walker.CollectFiles = true;
        return walker.WalkFolder(root);
    }

    struct Walk
    {
        test::FakeSearchHost host;
        platform::LinuxDirectoryReader reader;
        search::FolderWalker walker{host, reader};

        QStringList run(const QString& root, const QString& mask = QStringLiteral("*.mp3"))
        {
            walk(walker, root + QLatin1Char('/'), mask);
            return host.rows;
        }
    };

    // A walk over listed folders, where every listed name is a file.
    struct FakeWalk
    {
        platform::FakeDirectoryReader reader;
        test::FakeSearchHost host;
        search::FolderWalker walker{host, reader};
        FakeWalk()
        {
            host.isFile = [](const QString&) { return true; };
        }
    };

    static QStringList relative(const QStringList& paths, const QString& root)
    {
        QStringList out;
        for (const QString& p : paths)
            out.append(p.mid(root.size() + 1));
        return out;
    }

private slots:
    void foldersFilesComeBeforeItsSubFolders()
    {
        QTemporaryDir dir;
        const QString r = dir.path();
        for (const char* name : {"a.mp3", "s1/b.mp3", "s1/deep/c.mp3", "s2/d.MP3", "s2/e.wav"})
            QVERIFY(test::writeFile(r + QLatin1Char('/') + QLatin1String(name)));
        Walk walk;
        const QStringList rows = relative(walk.run(r), r);
        QCOMPARE(rows.size(), 4);
        QCOMPARE(rows.first(), QStringLiteral("a.mp3"));
        QVERIFY(rows.indexOf("s1/b.mp3") < rows.indexOf("s1/deep/c.mp3"));
        // Each folder is entered whole before its next sibling.
        const qsizetype d = rows.indexOf("s2/d.MP3");
        QVERIFY(d == 1 || d == 3);
        QCOMPARE(walk.host.batchDepth, 0);
        QCOMPARE(walk.host.folderStrip.left(13), QStringLiteral("Buscando ... "));
    }

    void dotFoldersAreNeverEntered()
    {
        QTemporaryDir dir;
        const QString r = dir.path();
        QVERIFY(test::writeFile(r + "/.config/hidden.mp3"));
        QVERIFY(test::writeFile(r + "/.dotfile.mp3"));
        QVERIFY(test::writeFile(r + "/musica/.otro/x.mp3"));
        QVERIFY(test::writeFile(r + "/musica/y.mp3"));
        Walk walk;
        QStringList rows = relative(walk.run(r), r);
        rows.sort();
        QCOMPARE(rows, (QStringList{".dotfile.mp3", "musica/y.mp3"}));
    }

    void linksToFoldersAreNotEnteredSoLoopsEnd()
    {
        QTemporaryDir dir;
        const QString r = dir.path();
        QVERIFY(test::writeFile(r + "/a/tema.mp3"));
        QVERIFY(QFile::link(r, r + "/a/loop"));
        QVERIFY(QFile::link(r + "/a", r + "/a/back.mp3")); // a link to a folder that matches
        QVERIFY(QFile::link(r + "/a/tema.mp3", r + "/enlace.mp3")); // a link to a file
        Walk walk;
        QStringList rows = relative(walk.run(r), r);
        rows.sort();
        QCOMPARE(rows, (QStringList{"a/tema.mp3", "enlace.mp3"}));
        // The matching link to a folder was offered and refused, and counted.
        QCOMPARE(walk.walker.MatchCount.value(), 3);
        // Only the plain file skips the list's look-up; links are looked up.
        QCOMPARE(relative(walk.host.known, r), QStringList{"a/tema.mp3"});
    }

    // A name that is not UTF-8 cannot be named again once decoded: the command line's host
    // refuses it and its folder quietly but hears of both; the list window takes them as
    // Windows-1252 reads them, and the shown name reaches the file only through those bytes.
    void namesThatAreNotUtf8_data()
    {
        QTest::addColumn<bool>("taken");
        QTest::newRow("command line") << false;
        QTest::newRow("list window") << true;
    }
    void namesThatAreNotUtf8()
    {
        QFETCH(bool, taken);
        QTemporaryDir dir;
        const QByteArray root = QFile::encodeName(dir.path());
        const test::RemovedAtEnd rawNames(root);
        QCOMPARE(::mkdir((root + "/M\xfasica").constData(), 0700), 0);
        for (const char* name :
             {"/Canci\xf3n.mp3", "/M\xfasica/tema.mp3", "/M\xfasica/\x80uros.mp3"})
            QVERIFY(test::writeRawName(root + name));
        QVERIFY(test::writeFile(dir.path() + "/bien.mp3"));
        QVERIFY(test::writeFile(dir.path() + "/linea\nrota.mp3"));
        Walk walk;
        walk.host.takesUndecodable = taken;
        walk.run(dir.path());
        QStringList shown = relative(walk.host.known, dir.path());
        shown.sort();
        if (taken) {
            QCOMPARE(shown, (QStringList{"Canción.mp3", "Música/tema.mp3", "Música/€uros.mp3",
                                         "bien.mp3", "linea\nrota.mp3"}));
            QCOMPARE(walk.walker.UndecodableNames, 3);
        } else {
            QCOMPARE(shown, (QStringList{"bien.mp3", "linea\nrota.mp3"}));
            QCOMPARE(walk.host.undecodable.size(), 2);
            QVERIFY(walk.host.undecodable.first().startsWith(dir.path() + "/"));
        }
        QCOMPARE(walk.walker.MatchCount.value(), taken ? 5 : 3);
        QVERIFY(platform::isWindows1252OnlyName(dir.path() + "/Canción.mp3"));
        QVERIFY(!platform::isWindows1252OnlyName(dir.path() + "/bien.mp3"));
        QVERIFY(!platform::isWindows1252OnlyName(dir.path() + "/otra.mp3"));
        QCOMPARE(platform::encodeWindows1252(
                     platform::decodeWindows1252(QByteArray("\x80\x81\x8d\x9f\xa0\xff", 6))),
                 QByteArray("\x80\x81\x8d\x9f\xa0\xff", 6));
    }

    void otherFileSystemsBelowTheStartAreNotEntered()
    {
        FakeWalk w;
        w.reader.addFolder("/r/", {"a.mp3", "usb/", "musica/"});
        w.reader.addFolder("/r/usb/", {"b.mp3"});
        w.reader.addFolder("/r/musica/", {"c.mp3"});
        w.reader.mountPoints = {"/r/usb/"};
        walk(w.walker, "/r/");
        QCOMPARE(w.host.rows, (QStringList{"/r/a.mp3", "/r/musica/c.mp3"}));
        // A mount point that is the start itself is walked.
        walk(w.walker, "/r/usb/");
        QCOMPARE(w.host.rows.last(), QStringLiteral("/r/usb/b.mp3"));
    }

    void theReaderTellsMountPointsApart()
    {
        // The root holds /proc, always another file system; a fresh folder is on its parent's.
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkdir("sub"));
        platform::LinuxDirectoryReader reader;
        const auto own = reader.read(dir.path());
        QVERIFY(own);
        for (const platform::DirEntry& e : *own)
            QVERIFY(!e.otherFileSystem);
        const auto root = reader.read("/");
        QVERIFY(root);
        const auto proc = std::find_if(root->begin(), root->end(), [](const platform::DirEntry& e) {
            return e.name == "proc";
        });
        if (proc == root->end() || !QFileInfo::exists("/proc/self"))
            QSKIP("no /proc here");
        QVERIFY(proc->isFolder && proc->otherFileSystem);
    }

    void unreadableAndVanishedFoldersAreSkippedWithTheirTrees()
    {
        FakeWalk w;
        w.reader.addFolder("/r/", {"a.mp3", "gone/", "closed/", "ok/"});
        w.reader.addFolder("/r/ok/", {"b.mp3"});
        walk(w.walker, "/r/");
        QCOMPARE(w.host.rows, (QStringList{"/r/a.mp3", "/r/ok/b.mp3"}));
        QCOMPARE(w.walker.FoldersSeen.value(), 3);
        // One listing per folder serves both its files and its subfolders.
        QCOMPARE(w.reader.reads, (QStringList{"/r/", "/r/gone/", "/r/closed/", "/r/ok/"}));
    }

    void folderOverflowAbandonsTheWalk()
    {
        FakeWalk w;
        w.reader.generator = [](const QString& folder) -> std::optional<QList<platform::DirEntry>> {
            QList<platform::DirEntry> entries;
            if (folder == QLatin1String("/r/")) {
                for (int i = 0; i < 40000; ++i)
                    entries.append({QStringLiteral("d%1").arg(i), true});
            }
            return entries;
        };
        search::FolderWalker& walker = w.walker;
        QCOMPARE(walk(walker, "/r/"), search::FolderWalker::WalkEnd::CounterFull);
        QCOMPARE(walker.FoldersSeen.value(), 32767);
        walker.setSixteenBitCounters(false);
        walker.FoldersSeen.reset();
        QCOMPARE(walker.WalkFolder("/r/"), search::FolderWalker::WalkEnd::Finished);
        QCOMPARE(walker.FoldersSeen.value(), 40000);
    }
};

QTEST_GUILESS_MAIN(TestFolderWalker)
#include "tst_FolderWalker.moc"
