// SPDX-License-Identifier: GPL-3.0-or-later
#include "CatalogueSamples.h"

#include "database/AtomicSaveFile.h"
#include "database/CatalogueFiles.h"
#include "database/DescriptorDevice.h"
#include "database/FileCause.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "TestFiles.h"

using namespace nubo::database;

namespace {

const QList<CatalogueRecord>& rows5000()
{
    static const QList<CatalogueRecord> rows = test::sampleRows(5000);
    return rows;
}

// The rows a load hands over, and its outcome.
struct Loaded
{
    LoadOutcome outcome;
    QList<CatalogueRecord> rows;
};

Loaded load(const QString& path, qsizetype stopAt = -1)
{
    Loaded loaded;
    loaded.outcome =
        readCatalogue(path, {{},
                             [stopAt](qsizetype i) { return i != stopAt; },
                             [&loaded](CatalogueRecord&& r) { loaded.rows.append(std::move(r)); }});
    return loaded;
}

// A save that Escape stops before row stopAt (never when negative).
SaveOutcome save(const QString& path, const QList<CatalogueRecord>& rows, qsizetype stopAt = -1)
{
    SaveHooks hooks;
    hooks.beforeRow = [stopAt](qsizetype i) { return i != stopAt; };
    return saveCatalogue(path, {}, rowsOf(rows), hooks);
}

// The rows as a load hands them over: a database gives its last record first.
QList<CatalogueRecord> inFileOrder(const QString& name, QList<CatalogueRecord> rows)
{
    if (name.endsWith(QLatin1String("mdb")))
        std::reverse(rows.begin(), rows.end());
    return rows;
}

QStringList entries(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                  QDir::NoDotAndDotDot);
}

} // namespace

// The format-neutral entry points and the safe save beneath them; the list window's flow over
// them is tested in tst_CatalogueFileFlow.
class CatalogueFilesTest final : public QObject
{
    Q_OBJECT

private slots:
    // Every text path survives either format, in the order the list appends the rows.
    void roundTrip_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("count");
        for (const char* name : {"lista.xls", "lista.mdb"}) {
            QTest::addRow("%s, empty", name) << QString(name) << 0;
            QTest::addRow("%s, thirty thousand", name) << QString(name) << 30000;
        }
    }
    void roundTrip()
    {
        QFETCH(QString, name);
        QFETCH(int, count);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        const QList<CatalogueRecord> rows = test::sampleRows(count);
        QVERIFY(save(path, rows).ok);
        const auto loaded = loadCatalogue(path);
        QVERIFY2(loaded, qPrintable(loaded.reason()));
        QCOMPARE(loaded->name, name.endsWith(QLatin1String("mdb")) ? QStringLiteral("Catalogo")
                                                                   : QStringLiteral("Colección"));
        QCOMPARE(loaded->rows, inFileOrder(name, rows));
    }

    // Seeds and every input the fuzzers found: each gives rows or an error.
    void corpusFilesAreErrorsOrRows()
    {
        const QString corpus =
            qEnvironmentVariable("NUBO_SOURCE_DIR") + QStringLiteral("/tests/database/corpus");
        QDirIterator files(corpus, QDir::Files, QDirIterator::Subdirectories);
        int count = 0;
        while (files.hasNext()) {
            const QString path = files.next();
            if (!catalogueFormatOf(path))
                continue;
            const auto loaded = loadCatalogue(path);
            QVERIFY2(loaded || !loaded.reason().isEmpty(), qPrintable(path));
            ++count;
        }
        QVERIFY2(count > 0, "the corpus under tests/database/corpus holds no catalogue");
    }

    // Only a regular file, or a symlink to one, is replaced; the others stay what they were. A
    // symlink to a file is written through: the link stays, its file takes the rows.
    void specialTargetsAreNeverReplaced_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("kind");
        for (const char* name : {"c.xls", "c.mdb"}) {
            for (const char* kind : {"fifo", "link to fifo", "link to /dev/null", "folder",
                                     "dangling link", "link to a file"})
                QTest::addRow("%s %s", name, kind) << name << kind;
        }
    }
    void specialTargetsAreNeverReplaced()
    {
        QFETCH(QString, name);
        QFETCH(QString, kind);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        const QString real = nubo::test::writtenFile(dir.filePath("real/" + name), "old");
        const QByteArray fifo = QFile::encodeName(dir.filePath(QStringLiteral("fifo")));
        QCOMPARE(::mkfifo(fifo.constData(), 0644), 0);
        const QMap<QString, QString> links{{"link to fifo", QFile::decodeName(fifo)},
                                           {"dangling link", dir.filePath("nowhere")},
                                           {"link to /dev/null", "/dev/null"},
                                           {"link to a file", real}};
        if (kind == QLatin1String("fifo"))
            QVERIFY(QFile::rename(QFile::decodeName(fifo), path));
        else if (kind == QLatin1String("folder"))
            QVERIFY(QDir().mkdir(path));
        else
            QVERIFY(QFile::link(links.value(kind), path));
        const QStringList before = entries(dir.path());
        const SaveOutcome saved = save(path, rows5000().mid(0, 10));
        QCOMPARE(entries(dir.path()), before);
        QCOMPARE(entries(dir.filePath("real")), QStringList{name});
        QVERIFY(!QFileInfo(QStringLiteral("/dev/null")).isFile()); // still the device
        if (kind == QLatin1String("link to a file")) {
            QVERIFY(saved.ok && QFileInfo(path).isSymLink());
            QCOMPARE(load(real).rows.size(), 10);
            return;
        }
        QVERIFY2(!saved.ok && saved.reason.contains(QStringLiteral("no se escribe en él")),
                 qPrintable(saved.reason));
        QCOMPARE(nubo::test::fileBytes(real), QByteArray("old"));
    }

    // FIFOs and devices are refused without blocking or reading without bound, and a file
    // larger than any catalogue is refused before it is read.
    void specialAndHugeSourcesAreRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("says");
        for (const char* name : {"s.xls", "s.mdb"}) {
            QTest::addRow("%s fifo", name) << name << "fifo"
                                           << "no es un archivo normal";
            QTest::addRow("%s /dev/zero", name) << name << "zero"
                                                << "no es un archivo normal";
            QTest::addRow("%s sparse 3 GB", name) << name << "sparse"
                                                  << "MB, más de lo que";
        }
    }
    void specialAndHugeSourcesAreRefused()
    {
        QFETCH(QString, name);
        QFETCH(QString, kind);
        QFETCH(QString, says);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        const QByteArray native = QFile::encodeName(path);
        if (kind == QLatin1String("fifo")) {
            QCOMPARE(::mkfifo(native.constData(), 0644), 0);
        } else if (kind == QLatin1String("zero")) {
            QVERIFY(QFile::link(QStringLiteral("/dev/zero"), path));
        } else {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            QVERIFY(file.resize(qint64(3) << 30)); // sparse: takes no room
        }
        const Loaded loaded = load(path);
        QVERIFY(!loaded.outcome.ok);
        QVERIFY(loaded.rows.isEmpty());
        QVERIFY2(loaded.outcome.reason.contains(says), qPrintable(loaded.outcome.reason));
    }

    // Escape at twenty points of a save: over an existing file the file stays byte for byte;
    // a new file keeps the rows written so far. Nothing else is left in the folder.
    void escapeAtTwentyPointsOfASave_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("existing");
        for (const char* name : {"c.xls", "c.mdb"}) {
            QTest::addRow("%s new", name) << name << false;
            QTest::addRow("%s existing", name) << name << true;
        }
    }
    void escapeAtTwentyPointsOfASave()
    {
        QFETCH(QString, name);
        QFETCH(bool, existing);
        const QList<CatalogueRecord> rows = rows5000().mid(0, 1000);
        for (qsizetype stop = 0; stop < rows.size(); stop += rows.size() / 20) {
            QTemporaryDir dir;
            const QString path = dir.filePath(name);
            if (existing)
                QVERIFY(save(path, rows5000().mid(4000)).ok);
            const QByteArray before = nubo::test::fileBytes(path);
            const SaveOutcome saved = save(path, rows, stop);
            QVERIFY(saved.stopped);
            QCOMPARE(saved.discarded, existing);
            QCOMPARE(entries(dir.path()), existing || saved.ok ? QStringList{name} : QStringList{});
            if (existing)
                QCOMPARE(nubo::test::fileBytes(path), before);
            else
                QCOMPARE(load(path).rows, inFileOrder(name, rows.mid(0, stop)));
        }
    }

    // Every 4 KiB block zeroed in turn: the load is whole, refused, or reported as damaged with
    // what it read, never a silent short read.
    void everyZeroedBlockIsWholeOrReported_data() { test::addFormats(); }
    void everyZeroedBlockIsWholeOrReported()
    {
        QFETCH(QString, name);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        QVERIFY(save(path, rows5000()).ok);
        const QByteArray good = nubo::test::fileBytes(path);
        int damaged = 0;
        for (qsizetype at = 0; at < good.size(); at += 4096) {
            QByteArray bytes = good;
            std::fill(bytes.begin() + at, bytes.begin() + std::min(at + 4096, bytes.size()), 0);
            nubo::test::writtenFile(path, bytes);
            const Loaded loaded = load(path);
            const LoadOutcome& o = loaded.outcome;
            QVERIFY2(!o.ok || o.damaged || loaded.rows.size() == rows5000().size(),
                     qPrintable(QStringLiteral("block at %1: %2 rows, no damage seen")
                                    .arg(at)
                                    .arg(loaded.rows.size())));
            QCOMPARE(o.added, loaded.rows.size());
            damaged += o.damaged || !o.ok ? 1 : 0;
        }
        QVERIFY(damaged > 0);
    }

    // Each way a write can be refused says so in Spanish, not as an unknown error.
    void errnoCausesAreNamed_data()
    {
        QTest::addColumn<int>("error");
        QTest::addColumn<QString>("cause");
        QTest::newRow("full disk") << ENOSPC << "No queda espacio libre en el disco.";
        QTest::newRow("quota") << EDQUOT << "Se ha agotado la cuota de disco del usuario.";
        QTest::newRow("read-only") << EROFS << "El disco o la carpeta es de solo lectura.";
        QTest::newRow("access") << EACCES
                                << "Permiso denegado: no tiene acceso a ese archivo o carpeta.";
        QTest::newRow("permission")
            << EPERM << "Permiso denegado: no tiene acceso a ese archivo o carpeta.";
    }
    void errnoCausesAreNamed()
    {
        QFETCH(int, error);
        QFETCH(QString, cause);
        QCOMPARE(fileErrorCause(error), cause);
    }

    // A real full device: the write fails with the full-disk cause, not an unknown error.
    void aFullDeviceSaysSo()
    {
        const int fd = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
        if (fd < 0)
            QSKIP("/dev/full is not there");
        DescriptorDevice device(fd);
        QCOMPARE(device.write(QByteArray(4096, 'x')), qint64(-1));
        QCOMPARE(device.lastErrno(), ENOSPC);
        QCOMPARE(device.errorString(), QStringLiteral("No queda espacio libre en el disco."));
        ::close(fd);
    }

    // The replaced file's owner and mode pass to the new one; a killed save's named leftover
    // is removed by the next save of that name.
    void ownerModeAndLeftovers_data() { test::addFormats(); }
    void ownerModeAndLeftovers()
    {
        QFETCH(QString, name);
        QTemporaryDir dir;
        const QString path = dir.filePath(name);
        QVERIFY(save(path, rows5000().mid(0, 5)).ok);
        const QByteArray native = QFile::encodeName(path);
        QCOMPARE(::chmod(native.constData(), 0604), 0);
        const bool root = ::geteuid() == 0;
        if (root)
            QCOMPARE(::chown(native.constData(), 4321, 4322), 0);
        const QString leftover = dir.filePath('.' + name + QStringLiteral(".nubo-999999999-0"));
        nubo::test::writtenFile(leftover, "half a save");
        QVERIFY(save(path, rows5000().mid(0, 7)).ok);
        struct stat st
        {
        };
        QCOMPARE(::stat(native.constData(), &st), 0);
        QCOMPARE(st.st_mode & 07777, 0604u);
        if (root)
            QVERIFY(st.st_uid == 4321 && st.st_gid == 4322);
        QCOMPARE(entries(dir.path()), QStringList{name});
        QCOMPARE(load(path).rows.size(), 7);
    }

    // Where the file system has no unnamed files, the named temporary file behaves the same:
    // the target changes only at commit, a discard leaves nothing, the mode passes on.
    void namedTemporaryFileWhereUnnamedAreMissing()
    {
        QTemporaryDir dir;
        const QString path = nubo::test::writtenFile(dir.filePath(QStringLiteral("c.xls")), "old");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
        const QFile::Permissions modes = QFile::permissions(path);
        {
            AtomicSaveFile file(path, AtomicSaveFile::Temporary::Named);
            QVERIFY(bool(file.open()));
            QCOMPARE(file.device()->write("half"), 4);
            QCOMPARE(entries(dir.path()).size(), 2); // the target and the named file
        }
        QCOMPARE(entries(dir.path()), QStringList{QStringLiteral("c.xls")});
        QCOMPARE(nubo::test::fileBytes(path), QByteArray("old"));
        AtomicSaveFile file(path, AtomicSaveFile::Temporary::Named);
        QVERIFY(bool(file.open()));
        QCOMPARE(file.device()->write("new"), 3);
        QCOMPARE(nubo::test::fileBytes(path), QByteArray("old"));
        QVERIFY(bool(file.commit()));
        QCOMPARE(nubo::test::fileBytes(path), QByteArray("new"));
        QCOMPARE(entries(dir.path()), QStringList{QStringLiteral("c.xls")});
        QCOMPARE(QFile::permissions(path), modes);
    }
};

QTEST_GUILESS_MAIN(CatalogueFilesTest)
#include "tst_CatalogueFiles.moc"
