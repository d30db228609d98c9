// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Catalogue.h"
#include "catalogue/ICatalogueSaveFlow.h"

#include <QSignalSpy>
#include <QTest>

#include "CatalogueFixture.h"

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
