#include "catalogue/Catalogue.h"
#include "core/ActivityLog.h"
#include "core/Options.h"
#include "database/DatabaseReader.h"
#include "database/WorkbookReader.h"
#include "database/flow/CatalogueFileFlow.h"
#include "database/flow/ITransferView.h"
#include "platform/fakes/FakeDialogs.h"
#include "platform/fakes/FakeDrives.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <optional>
#include <sys/resource.h>

#include "TestFiles.h"

using namespace nubo;
using database::CatalogueRecord;

namespace {

// Records the progress calls; raises the cancel flag at a chosen turn of a loop.
struct FakeView final : database::ITransferView
{
    std::function<void()> cancel;
    int cancelAtTurn = 0; // 0: never
    int turns = 0;
    int begun = 0;
    int ended = 0;
    int maximum = -1;

    void beginProgress(int max) override
    {
        ++begun;
        maximum = max;
    }
    void setProgress(int) override {}
    void endProgress() override { ++ended; }
    void processEvents() override
    {
        if (++turns == cancelAtTurn)
            cancel();
    }
};

struct Flow
{
    QTemporaryDir dir;
    platform::AppFolder app{dir.path()};
    platform::FakeDrives drives;
    platform::FakeDialogs dialogs;
    catalogue::Catalogue catalogue{drives, dialogs};
    core::Options options;
    core::ActivityLog log{app, [] { return true; }};
    database::SheetSettings sheet;
    FakeView view;
    database::CatalogueFileFlow flow{{catalogue, view, dialogs, log, options, sheet}};
    QStringList statuses;

    Flow()
    {
        QDir(dir.path()).mkpath(QStringLiteral("log"));
        view.cancel = [this] { flow.transfer().raiseCancelFlag(); };
        catalogue.setSaveFlow(&flow);
        QObject::connect(&catalogue.info(), &catalogue::InfoMessage::changed,
                         [this](const QString& text, quint32) { statuses.append(text); });
    }
    QString path(const QString& name) const { return dir.filePath(name); }
    // Rows "r0" .. "r(n-1)", r0 at the top.
    void fill(int n)
    {
        for (int i = n - 1; i >= 0; --i)
            catalogue.list().insertAtTop({QStringLiteral("r%1").arg(i), QStringLiteral("\\d\\"),
                                          QStringLiteral("g"), QStringLiteral("MP3"),
                                          QStringLiteral("C:")});
    }
    QStringList names() const
    {
        QStringList out;
        for (int p = 0; p < catalogue.list().count(); ++p)
            out.append(catalogue.list().row(p).nombre);
        return out;
    }
    QString status() const { return statuses.isEmpty() ? QString() : statuses.last(); }
};

// While it lives, files cannot grow beyond the limit, as on a full disk: writes past it fail
// (with the signal that would end the process ignored).
class FileSizeLimit final
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_old);
        rlimit limit = m_old;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_old); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_old{};
};

// The file's rows as its reader gives them, in file order.
QStringList storedNames(const QString& path)
{
    QStringList out;
    if (path.endsWith(QLatin1String("mdb"), Qt::CaseInsensitive)) {
        database::DatabaseReader reader;
        CatalogueRecord record;
        if (reader.open(path))
            while (reader.next(record))
                out.append(record.nombre);
    } else {
        database::WorkbookReader reader;
        if (reader.open(path))
            for (quint32 r = 3; r <= reader.lastRow(); ++r)
                out.append(reader.record(r).nombre);
    }
    return out;
}

void addFormats()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("workbook") << "lista.xls";
    QTest::newRow("database") << "lista.mdb";
}

} // namespace

class TestCatalogueFileFlow final : public QObject
{
    Q_OBJECT
private slots:
    void roundTripKeepsOrderAndCounts_data() { addFormats(); }
    void roundTripKeepsOrderAndCounts()
    {
        QFETCH(QString, name);
        Flow f;
        const QString path = f.path(name);
        f.flow.SaveByExtension(path); // an empty list gives a file without rows
        QCOMPARE(f.status(), QStringLiteral("Agregados 0 archivos a la base de datos."));
        QCOMPARE(storedNames(path), QStringList());
        QCOMPARE(f.view.begun, f.view.ended);
        f.view.begun = f.view.ended = 0;
        f.fill(3);
        f.catalogue.list().insertAtTop({{}, {}, {}, {}, {}}); // no name: a workbook skips it
        f.flow.SaveByExtension(path);
        QCOMPARE(f.status(), QStringLiteral("Agregados 4 archivos a la base de datos."));
        QCOMPARE(f.view.maximum, 4);
        f.catalogue.list().removeAt(0);
        f.flow.openFile(path); // appends below the rows already there
        QCOMPARE(f.catalogue.currentFile(), path);
        const bool workbook = name.endsWith(QLatin1String("xls"));
        // A database loads its last record first.
        const QStringList expected = workbook ? QStringList{"r0", "r1", "r2", "r0", "r1", "r2"}
                                              : QStringList{"r0", "r1", "r2", "r2", "r1", "r0", ""};
        QCOMPARE(f.names(), expected);
        QCOMPARE(f.catalogue.list().row(3).unidad, QStringLiteral("NN"));
        const QString added = QString::number(workbook ? 3 : 4);
        QCOMPARE(f.statuses.last(), "Se han agregado " + added + " archivos desde " + path);
        QCOMPARE(f.catalogue.countLine(),
                 QStringLiteral("La lista contiene %1 archivos actualmente").arg(expected.size()));
        QCOMPARE(f.view.begun, 2);
        QCOMPARE(f.view.ended, 2);
        if (workbook) {
            QCOMPARE(f.sheet.sheetName, QStringLiteral("Colección"));
            QVERIFY(f.statuses.contains(QStringLiteral("Comprobando formato Colección...")));
        }
    }

    // Workbook: the cancel seen before row k + 1 keeps k rows. Database: the cancel seen at row
    // k keeps k - 1 rows and one empty record, and reports k.
    void cancelKeepsThePartialFile_data() { addFormats(); }
    void cancelKeepsThePartialFile()
    {
        QFETCH(QString, name);
        Flow f;
        f.fill(6);
        f.view.cancelAtTurn = 4;
        const QString path = f.path(name);
        f.flow.SaveByExtension(path);
        const bool workbook = name.endsWith(QLatin1String("xls"));
        QCOMPARE(f.status(), QStringLiteral("CANCELADA...Se ha agregado %1 archivos a la base de "
                                            "datos.")
                                 .arg(workbook ? 3 : 4));
        const QStringList kept =
            workbook ? QStringList{"r0", "r1", "r2"} : QStringList{"r0", "r1", "r2", ""};
        QCOMPARE(storedNames(path), kept);
        QCOMPARE(f.view.ended, 1);

        f.catalogue.list().clear();
        f.view.turns = 0;
        f.view.cancelAtTurn = 2;
        f.flow.LoadByExtension(path);
        QCOMPARE(f.names().size(), 1);
        QCOMPARE(f.status(), "CANCELADA...Agregados 1 archivos desde " + path);
    }

    void saveDialogChoosesTheFormat_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("saved");
        QTest::newRow("no extension") << "catalogo" << QStringLiteral("catalogo.mdb");
        QTest::newRow("upper-case workbook") << "lista.XLS" << QStringLiteral("lista.XLS");
        QTest::newRow("other extension") << "lista.txt" << QStringLiteral("lista.txt.mdb");
    }
    void saveDialogChoosesTheFormat()
    {
        QFETCH(QString, typed);
        QFETCH(QString, saved);
        Flow f;
        f.fill(2);
        f.dialogs.fileAnswers.enqueue(f.path(typed));
        f.flow.save();
        QCOMPARE(f.dialogs.asked.last().title, QStringLiteral("Guardar como..."));
        QCOMPARE(f.dialogs.fileStartPaths.last(), QStringLiteral("c:"));
        QCOMPARE(f.dialogs.asked.last().text, database::CatalogueFileFlow::saveFilter());
        QCOMPARE(f.catalogue.currentFile(), f.path(saved));
        QCOMPARE(storedNames(f.path(saved)), (QStringList{"r0", "r1"}));
        // The second "&Guardar" writes again without asking.
        f.fill(1);
        f.flow.save();
        QCOMPARE(f.dialogs.asked.size(), 1);
        QCOMPARE(storedNames(f.path(saved)).size(), 3);
        f.flow.saveAs(); // starts at the current file; cancelled
        QCOMPARE(f.dialogs.fileStartPaths.last(), f.path(saved));
    }

    // The style is applied only with CONFIGEXCEL on.
    void sheetStyleFollowsTheOption()
    {
        Flow f;
        f.fill(2);
        const auto saved = [&f](bool on, quint32 fill) {
            f.options.setValue(core::Option::ConfigExcel, on ? 1 : 0);
            f.sheet.style.fillColor = fill;
            const QString path = f.path(QStringLiteral("s.xls"));
            f.flow.SaveByExtension(path);
            return test::fileBytes(path);
        };
        const QByteArray plain = saved(false, 0xFFFFFF);
        QCOMPARE(saved(false, 0x123456), plain);
        QVERIFY(saved(true, 0x123456) != plain);
    }

    void cancelledDialogsChangeNothing()
    {
        Flow f;
        f.fill(1);
        f.catalogue.setCurrentFile(f.path(QStringLiteral("x.mdb")));
        f.flow.saveAs();
        QCOMPARE(f.status(), QStringLiteral("La lista no se guardará"));
        QCOMPARE(f.dialogs.fileStartPaths.first(), f.path(QStringLiteral("x.mdb")));
        f.flow.loadFromFile();
        QCOMPARE(f.status(), QStringLiteral("No se abrira ninguna base de datos"));
        QCOMPARE(f.catalogue.currentFile(), f.path(QStringLiteral("x.mdb")));
        QCOMPARE(f.names(), QStringList{"r0"});
        QVERIFY(!QFile::exists(f.path(QStringLiteral("x.mdb"))));
        QCOMPARE(f.dialogs.asked[1].kind, QStringLiteral("open"));
        QCOMPARE(f.dialogs.asked[1].title, QStringLiteral("Seleccione la base de datos a abrir"));
    }

    void unwritableTargetKeepsTheOldFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("obstacle");
        for (const char* obstacle : {"read-only", "missing folder", "full disk"})
            for (const char* name : {"v.xls", "v.mdb"})
                QTest::addRow("%s, %s", obstacle, name)
                    << (qstrcmp(obstacle, "missing folder") ? "" : "no/") + QString(name)
                    << QString(obstacle);
    }
    void unwritableTargetKeepsTheOldFile()
    {
        QFETCH(QString, name);
        QFETCH(QString, obstacle);
        Flow f;
        f.fill(3000); // either file is well over the full disk's 64 KiB
        const QString path = f.path(name);
        const bool old = obstacle != QLatin1String("missing folder");
        if (old)
            test::writeFile(path, "old bytes");
        if (obstacle == QLatin1String("read-only"))
            QFile::setPermissions(path, QFile::ReadOwner);
        {
            std::optional<FileSizeLimit> full;
            if (obstacle == QLatin1String("full disk"))
                full.emplace(64 * 1024);
            f.flow.SaveByExtension(path);
        }
        QCOMPARE(f.status(), "No se puede acceder al archivo " + path +
                                 " Compruebe que el archivo exista y no sea de solo lectura");
        QCOMPARE(test::fileBytes(path), old ? QByteArray("old bytes") : QByteArray());
        QCOMPARE(QDir(f.dir.path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList(old ? QStringList{name} : QStringList{})); // no temporary file left
        QCOMPARE(f.view.begun, f.view.ended);
    }

    void workbookTooLongTakesTheApplicationFailure()
    {
        Flow f;
        f.fill(65535);
        const QString path = f.path(QStringLiteral("grande.xls"));
        test::writeFile(path, "old bytes");
        f.flow.SaveByExtension(path);
        QCOMPARE(f.dialogs.asked.last().title, QStringLiteral("Error al guardar archivo"));
        QCOMPARE(f.status(),
                 "No se puede acceder al archivo " + path + "Version de Office Incompatible");
        QVERIFY(test::fileBytes(f.log.path())
                    .contains("Office 97 incorrecto, mal instalado o sin instalar.%" +
                              path.toUtf8() + "%Write"));
        QCOMPARE(test::fileBytes(path), QByteArray("old bytes"));
    }

    // Every fixture and a file of ours, truncated and bit-flipped: rows or the failure texts.
    void hostileFilesGiveOnlyTheStatusTexts()
    {
        Flow f;
        f.fill(40);
        QStringList sources{f.path(QStringLiteral("own.xls")), f.path(QStringLiteral("own.mdb"))};
        for (const QString& own : sources)
            f.flow.SaveByExtension(own);
        QDirIterator fixtures(qEnvironmentVariable("NUBO_FIXTURES"), {"*.xls", "*.mdb"});
        while (fixtures.hasNext())
            sources.append(fixtures.next());
        const QRegularExpression allowed(
            QStringLiteral("^(Se han agregado \\d+ archivos desde |Imposible Acceder a |No se "
                           "puede acceder al archivo .*\\. Version de Office Incompatible$)"));
        int round = 0;
        for (const QString& source : std::as_const(sources)) {
            const QByteArray bytes = test::fileBytes(source);
            for (const double cut : {0.0, 0.1, 0.5, 0.9, 1.0}) {
                for (const bool flip : {false, true}) {
                    QByteArray damaged = bytes.left(qsizetype(bytes.size() * cut));
                    if (flip)
                        for (qsizetype i = 7; i < damaged.size(); i += 97)
                            damaged[i] = char(damaged[i] ^ (1 << (i % 8)));
                    const QString path = test::writtenFile(
                        f.path(QStringLiteral("h%1.").arg(++round) + source.right(3)), damaged);
                    f.catalogue.list().clear();
                    f.flow.LoadByExtension(path);
                    QVERIFY2(allowed.match(f.status()).hasMatch(), qPrintable(f.status()));
                    if (!f.status().startsWith(QLatin1String("Se han agregado")))
                        QVERIFY(f.catalogue.list().isEmpty()); // a failed load adds nothing
                    QCOMPARE(f.view.begun, f.view.ended);
                }
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestCatalogueFileFlow)
#include "tst_CatalogueFileFlow.moc"
