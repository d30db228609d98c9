// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Catalogue.h"
#include "catalogue/ICatalogueSaveFlow.h"

#include <QAbstractItemModelTester>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <mutex>
#include <thread>

#include "CatalogueFixture.h"
#include "tags/TaggedFiles.h"

using namespace nubo::catalogue;
using nubo::platform::MessageAnswer;

namespace {

// Records the save steps it is asked for; the "Guardar como" answer and whether saves succeed
// are set by the test.
class FakeSaveFlow final : public ICatalogueSaveFlow
{
public:
    QStringList calls;
    QString saveAsAnswer;
    bool saves = true;

    bool saveToCurrentFile(const QString& f) override
    {
        calls.append("current:" + f);
        return saves;
    }
    QString askSaveAsName() override
    {
        calls.append(QStringLiteral("ask"));
        return saveAsAnswer;
    }
    bool saveToPath(const QString& p) override
    {
        calls.append("path:" + p);
        return saves;
    }
};

// Holds every read of a row's details until released, so a test can act while reads are under
// way; releases them all when it goes.
struct HeldReads
{
    QSemaphore gate;
    std::atomic<int> started = 0;
    explicit HeldReads(DetailReader& reader)
    {
        reader.setReadFunction([this](const QString&) {
            ++started;
            gate.acquire();
            nubo::core::FileDetails details;
            details.title = QStringLiteral("leído");
            return details;
        });
    }
    ~HeldReads() { gate.release(1000); }
};

} // namespace

class TestCatalogue final : public QObject
{
    Q_OBJECT
private slots:
    // Missing files and folders are dropped without a word; deleting from or emptying the empty
    // list is refused; files go to the top.
    void addsExistingFilesAtTheTop()
    {
        CatalogueFixture f;
        QSignalSpy countLine(&f.catalogue, &Catalogue::countLineChanged);
        f.add(f.drive + QStringLiteral("/nada.mp3"));
        f.file(QStringLiteral("Carpeta/x"));
        f.add(f.drive + QStringLiteral("/Carpeta"));
        QCOMPARE(f.catalogue.list().count(), 0);
        QCOMPARE(countLine.count(), 0);
        QCOMPARE(f.catalogue.countLine(), QStringLiteral("La lista esta vacia"));
        f.catalogue.DeleteSelectedRows({0}); // refused on an empty list
        QCOMPARE(f.catalogue.info().text(),
                 QStringLiteral("ADVERTENCIA: No se pueden eliminar archivos de una lista vacia!"));
        QCOMPARE(f.catalogue.info().colour(), 0xFF0000u);
        f.catalogue.EmptyList(); // its text is checked on the window
        QVERIFY(f.dialogs.asked.isEmpty());
        f.catalogue.setGroupName(QStringLiteral("Rock"));
        QString path = f.file(QStringLiteral("Musica/tema.mp3"));
        f.catalogue.AddFileToList(path);
        QCOMPARE(path, f.drive + QStringLiteral("/Musica/")); // cut to the folder
        const CatalogueRow& row = f.catalogue.list().row(0);
        QCOMPARE(row, (CatalogueRow{"tema", "/Musica/", "Rock", "MP3", f.drive}));
        QCOMPARE(f.catalogue.countLine(),
                 QStringLiteral("La lista contiene 1 archivos actualmente"));

        f.add(f.drive + QStringLiteral("/Musica/tema.mp3"));
        QCOMPARE(f.catalogue.list().count(), 2);
        QCOMPARE(f.catalogue.list().row(0), f.catalogue.list().row(1));
        QCOMPARE(f.catalogue.countLine(),
                 QStringLiteral("La lista contiene 2 archivos actualmente"));
    }

    void deleteReportsAndCountsDeliberately_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<QList<int>>("selected");
        QTest::addColumn<QString>("message");
        QTest::addColumn<QString>("countLine");
        QTest::newRow("three of ten")
            << 10 << QList<int>{1, 2, 3} << "Han sido eliminados 3 archivos de la lista"
            << "La lista contiene 7 archivos actualmente";
        QTest::newRow("one of ten")
            << 10 << QList<int>{9} << "Ha sido eliminado 1 archivo de la lista"
            << "La lista contiene 9 archivo actualmente";
        QTest::newRow("nothing selected")
            << 2 << QList<int>{} << "Ha sido eliminado  archivo de la lista"
            << "La lista contiene 2 archivo actualmente";
    }
    void deleteReportsAndCountsDeliberately()
    {
        QFETCH(int, rows);
        QFETCH(QList<int>, selected);
        CatalogueFixture f;
        f.addMany(rows);
        f.catalogue.DeleteSelectedRows({selected.begin(), selected.end()});
        QCOMPARE(f.catalogue.list().count(), rows - selected.size());
        QTEST(f.catalogue.info().text(), "message");
        QCOMPARE(f.catalogue.info().colour(), 0x0000FFu);
        QTEST(f.catalogue.countLine(), "countLine");
    }

    void emptyListFollowsTheAnswer_data()
    {
        QTest::addColumn<QString>("currentFile");
        QTest::addColumn<MessageAnswer>("answer");
        QTest::addColumn<QString>("saveAsAnswer");
        QTest::addColumn<QStringList>("saveCalls");
        QTest::addColumn<bool>("saves");
        QTest::addColumn<EmptyOutcome>("outcome");
        QTest::newRow("yes, current file")
            << "/c/lista.xls" << MessageAnswer::Yes << "" << QStringList{"current:/c/lista.xls"}
            << true << EmptyOutcome::Emptied;
        QTest::newRow("yes, current file, save failed")
            << "/c/lista.xls" << MessageAnswer::Yes << "" << QStringList{"current:/c/lista.xls"}
            << false << EmptyOutcome::Stopped;
        QTest::newRow("yes, save as")
            << "" << MessageAnswer::Yes << "/c/n.mdb" << QStringList{"ask", "path:/c/n.mdb"} << true
            << EmptyOutcome::Emptied;
        QTest::newRow("yes, save as failed")
            << "" << MessageAnswer::Yes << "/c/n.mdb" << QStringList{"ask", "path:/c/n.mdb"}
            << false << EmptyOutcome::Stopped;
        QTest::newRow("yes, save as cancelled")
            << "" << MessageAnswer::Yes << "" << QStringList{"ask"} << true
            << EmptyOutcome::Stopped;
        QTest::newRow("no") << "/c/lista.xls" << MessageAnswer::No << "" << QStringList{} << true
                            << EmptyOutcome::Emptied;
        QTest::newRow("cancel") << "/c/lista.xls" << MessageAnswer::Cancel << "" << QStringList{}
                                << true << EmptyOutcome::Kept;
    }
    void emptyListFollowsTheAnswer()
    {
        QFETCH(QString, currentFile);
        QFETCH(MessageAnswer, answer);
        QFETCH(EmptyOutcome, outcome);
        const bool emptied = outcome == EmptyOutcome::Emptied;
        CatalogueFixture f;
        FakeSaveFlow flow;
        QFETCH(QString, saveAsAnswer);
        flow.saveAsAnswer = saveAsAnswer;
        QFETCH(bool, saves);
        flow.saves = saves;
        f.catalogue.setSaveFlow(&flow);
        f.addMany(3);
        f.catalogue.setCurrentFile(currentFile);
        // A failed save's own message stays on the line.
        f.catalogue.ShowInfoMessage(QStringLiteral("antes"), 1000, 0);
        f.dialogs.messageAnswers.enqueue(answer);
        QCOMPARE(f.catalogue.EmptyList(), outcome);

        QCOMPARE(f.dialogs.asked.size(), 1);
        QVERIFY(f.dialogs.asked[0].text.contains("lista " + currentFile + "?"));
        QCOMPARE(f.dialogs.asked[0].buttons, nubo::platform::MessageButtons::YesNoCancel);
        QTEST(flow.calls, "saveCalls");
        QCOMPARE(f.catalogue.list().count(), emptied ? 0 : 3);
        QCOMPARE(f.catalogue.currentFile(), emptied ? QString() : currentFile);
        QCOMPARE(f.catalogue.info().text(),
                 emptied ? QStringLiteral("La lista ha sido vaciada") : QStringLiteral("antes"));
        // The count line is left as the last addition wrote it.
        QCOMPARE(f.catalogue.countLine(),
                 QStringLiteral("La lista contiene 3 archivos actualmente"));
    }

    // While a save or load has the list, deleting and emptying are refused without a question.
    void busyListRefusesChanges()
    {
        CatalogueFixture f;
        FakeSaveFlow flow;
        f.catalogue.setSaveFlow(&flow);
        f.addMany(3);
        QSignalSpy busy(&f.catalogue, &Catalogue::busyChanged);
        f.catalogue.setBusy(true);
        const QString refusal = QStringLiteral(
            "Espere a que la lista termine de guardarse o cargarse (Esc lo detiene)");
        f.dialogs.messageAnswers.enqueue(MessageAnswer::No);
        QCOMPARE(f.catalogue.EmptyList(), EmptyOutcome::Stopped);
        QCOMPARE(f.catalogue.info().text(), refusal);
        QCOMPARE(f.catalogue.info().colour(), 0xFF0000u);
        f.catalogue.ShowInfoMessage(QString(), 1000, 0);
        f.catalogue.DeleteSelectedRows({0});
        QCOMPARE(f.catalogue.info().text(), refusal);
        QCOMPARE(f.catalogue.list().count(), 3);
        QVERIFY(f.dialogs.asked.isEmpty());
        f.catalogue.setBusy(false);
        f.catalogue.DeleteSelectedRows({0});
        QCOMPARE(f.catalogue.list().count(), 2);
        QCOMPARE(busy.count(), 2);
    }

    void sortOrderFlipsOnEveryHeaderClick()
    {
        CatalogueFixture f;
        for (const char* n : {"b", "c", "a"})
            f.add(f.file(QStringLiteral("Musica/%1.mp3").arg(QLatin1String(n))));
        auto top = [&] { return f.catalogue.list().row(0).nombre; };
        f.catalogue.SortByColumn(0);
        QCOMPARE(top(), QStringLiteral("c")); // the first click sorts descending
        f.catalogue.SortByColumn(0);
        QCOMPARE(top(), QStringLiteral("a"));
        f.catalogue.SortByColumn(1); // another column flips the one order too
        QCOMPARE(f.catalogue.sortOrder(), Qt::DescendingOrder);
        f.add(f.file(QStringLiteral("Musica/z.mp3")));
        QCOMPARE(top(), QStringLiteral("z")); // later additions still go to the top
    }

    // Each added file's size and date, and an audio file's tags and length, fill its row after
    // it is added, as the reads come back, in batches the views hear of.
    void rowsGetTheirFilesDetails_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("tagged");
        QTest::newRow("mp3") << "tema.mp3" << true;
        QTest::newRow("flac") << "tema.flac" << true;
        QTest::newRow("ogg") << "tema.ogg" << true;
        QTest::newRow("text") << "nota.txt" << false;
    }
    void rowsGetTheirFilesDetails()
    {
        QFETCH(QString, name);
        QFETCH(bool, tagged);
        CatalogueFixture f;
        QAbstractItemModelTester tester(&f.catalogue.list());
        const QString path = f.file("Musica/" + name);
        if (tagged) {
            QVERIFY(nubo::test::writeTagged(path, name.section('.', -1),
                                            {{"TITLE", {"Zamba de mi esperanza"}},
                                             {"ARTIST", {"Mercedes Quiroga"}},
                                             {"ALBUM", {"Sur"}},
                                             {"DATE", {"1979"}},
                                             {"TRACKNUMBER", {"4/12"}},
                                             {"GENRE", {"Folk"}}}));
        }
        QSignalSpy changed(&f.catalogue.list(), &QAbstractItemModel::dataChanged);
        f.add(path);
        f.add(path);
        QCOMPARE(f.catalogue.list().row(0).details, nubo::core::FileDetails());
        QTRY_VERIFY(f.catalogue.detailReader().pending() == 0);
        QVERIFY(changed.count() <= 2); // none when the rows were not shown yet
        const QFileInfo info(path);
        nubo::core::FileDetails expected;
        expected.size = info.size();
        expected.modified = info.lastModified().toSecsSinceEpoch();
        if (tagged)
            expected = {expected.size,
                        expected.modified,
                        "Zamba de mi esperanza",
                        "Mercedes Quiroga",
                        "Sur",
                        "Folk",
                        1979,
                        4,
                        1};
        QCOMPARE(f.catalogue.list().row(0).details, expected);
        QCOMPARE(f.catalogue.list().row(1).details, expected);
    }

    // A sort made before every row is read waits for the reads, so it sorts them all read;
    // also between two folders of a walk, whose files otherwise wait for its end.
    void sortWaitsForTheDetails()
    {
        CatalogueFixture f;
        QAbstractItemModelTester tester(&f.catalogue.list());
        f.catalogue.detailReader().setWalking(true);
        const QStringList titles{"Delta", "Alfa", "Eco", "Charlie", "Bravo"};
        for (int i = 0; i < 40; ++i) {
            const QString path = f.drive + QStringLiteral("/Musica/t%1.mp3").arg(i);
            QDir().mkpath(f.drive + "/Musica");
            QVERIFY(nubo::test::writeTagged(path, "mp3", {{"TITLE", {titles[i % 5]}}}));
            f.add(path);
        }
        f.catalogue.SortByColumn(int(Column::Titulo)); // descending
        QCOMPARE(f.catalogue.detailReader().pending(), 0);
        const CatalogueList& list = f.catalogue.list();
        QCOMPARE(list.row(0).details.title, QStringLiteral("Eco"));
        QCOMPARE(list.row(39).details.title, QStringLiteral("Alfa"));
        for (int p = 1; p < list.count(); ++p)
            QVERIFY(list.row(p - 1).details.title >= list.row(p).details.title);
    }

    // An optical disc's files are read one at a time, in the order the walk found them.
    void anOpticalDiscIsReadInTheOrderFound()
    {
        CatalogueFixture f;
        std::mutex guard;
        QStringList order;
        f.catalogue.detailReader().setReadFunction([&](const QString& path) {
            const std::lock_guard lock(guard);
            order.append(path);
            return nubo::core::FileDetails();
        });
        f.catalogue.detailReader().setInOrder(true);
        f.catalogue.detailReader().setWalking(true);
        QStringList added;
        for (int i = 0; i < 30; ++i) {
            added.append(f.file(QStringLiteral("CD/p%1.mp3").arg(i)));
            f.add(added.last());
        }
        f.catalogue.detailReader().setWalking(false);
        QVERIFY(f.catalogue.waitForDetails());
        QCOMPARE(order, added);
    }

    // Escape during the wait ends it: the reads not done are abandoned and the rows stay, so
    // the sort goes on; results of abandoned reads never land on a row.
    void escapeEndsTheWaitAndKeepsTheRows()
    {
        CatalogueFixture f;
        HeldReads held(f.catalogue.detailReader());
        f.addMany(6);
        QTRY_VERIFY(held.started > 0);
        QTimer::singleShot(30, &f.catalogue, &Catalogue::stopDetailWait);
        QVERIFY(!f.catalogue.waitForDetails());
        QCOMPARE(f.catalogue.list().count(), 6);
        QVERIFY(!f.catalogue.isBusy());
        held.gate.release(1000);
        QTRY_COMPARE(f.catalogue.detailReader().pending(), 0);
        QTest::qWait(2 * DetailReader::kBatchIntervalMs);
        for (int p = 0; p < 6; ++p)
            QVERIFY(f.catalogue.list().row(p).details.isEmpty());
        f.add(f.file("Musica/nuevo.mp3")); // reading goes on for later rows
        QVERIFY(f.catalogue.waitForDetails());
        QCOMPARE(f.catalogue.list().row(0).details.title, QStringLiteral("leído"));
    }

    // Emptying the list, or the catalogue going, while reads are under way abandons them.
    void emptyingDuringReadsAbandonsThem()
    {
        auto f = std::make_unique<CatalogueFixture>();
        auto held = std::make_unique<HeldReads>(f->catalogue.detailReader());
        f->addMany(5);
        QTRY_VERIFY(held->started > 0);
        f->dialogs.messageAnswers.enqueue(MessageAnswer::No);
        QCOMPARE(f->catalogue.EmptyList(), EmptyOutcome::Emptied);
        QVERIFY(f->catalogue.detailReader().pending() <= DetailReader::kReaders);
        f->addMany(2);
        QTimer::singleShot(20, [&held] { held->gate.release(1000); });
        QVERIFY(f->catalogue.waitForDetails());
        QCOMPARE(f->catalogue.list().count(), 2);
        QCOMPARE(f->catalogue.list().row(1).details.title, QStringLiteral("leído"));
        f->addMany(3);
        // The catalogue goes with reads held; they end when the gate opens.
        std::thread opener([&held] {
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            held->gate.release(1000);
        });
        f.reset();
        opener.join();
    }

    void messageStaysThenErasesFromItsEnd()
    {
        CatalogueFixture f;
        InfoMessage& info = f.catalogue.info();
        f.catalogue.ShowInfoMessage(QStringLiteral("abc"), 50, 0x00FF00);
        QTRY_COMPARE(info.text(), QStringLiteral("ab"));
        QCOMPARE(info.timer().interval(), 100);
        QTRY_VERIFY(!info.timer().isActive());
        QCOMPARE(info.text(), QString());
        QCOMPARE(info.colour(), 0x00FF00u);
    }
};

QTEST_GUILESS_MAIN(TestCatalogue)
#include "tst_Catalogue.moc"
