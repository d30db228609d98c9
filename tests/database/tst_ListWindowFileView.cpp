// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ui/CatalogueView.h"
#include "core/ActivityLog.h"
#include "database/CatalogueFiles.h"
#include "database/flow/CatalogueFileFlow.h"
#include "database/ui/ListWindowFileView.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>

#include "catalogue/Form1Fixture.h"

using namespace nubo;

namespace {

// The list window with a save flow drawing its progress there.
struct FlowFixture : Form1Fixture
{
    core::ActivityLog log{app, [] { return false; }};
    database::SheetSettings sheet;
    database::ListWindowFileView fileView{form};
    database::CatalogueFileFlow flow{{catalogue, fileView, dialogs, log, options, sheet}};
};

} // namespace

// The flow in the list window: the list and the progress bar go and come back, and the window's
// commands during a save lose nothing.
class TestListWindowFileView final : public QObject
{
    Q_OBJECT
private slots:
    // Repaints are coalesced, but the bar always reaches its end, and a second run starts from
    // its own maximum rather than the first one's.
    void theLastValueAlwaysReachesTheBar()
    {
        Form1Fixture f;
        database::ListWindowFileView view{f.form};
        const auto* bar = f.control<QProgressBar>("ProgressBar1");
        view.beginProgress(5);
        QVERIFY(bar->isVisible() && !f.view()->isEnabled());
        for (int value = 1; value <= 5; ++value)
            view.setProgress(value);
        QCOMPARE(bar->value(), 5);
        view.endProgress();
        QVERIFY(!bar->isVisible() && f.view()->isEnabled());
        view.beginProgress(3);
        view.setProgress(3);
        QCOMPARE(bar->value(), 3);
    }

    // Ctrl+V pressed inside a save's event turn, with "No" ready for the question: the emptying
    // is refused before it asks, the rows stay, and the file gets every row again, not blank
    // ones (a workbook: the same bytes as the save before it; a database stamps its time).
    void emptyingDuringASaveIsRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("workbook") << "l.xls";
        QTest::newRow("database") << "l.mdb";
    }
    void emptyingDuringASaveIsRefused()
    {
        QFETCH(QString, name);
        FlowFixture f;
        f.catalogue.setSaveFlow(&f.flow);
        for (int i = 0; i < 20000; ++i)
            f.catalogue.list().insertAtTop({QString::number(i), "/d/", "g", "MP3", "C:"});
        const QString path = f.dir.filePath(name);
        f.catalogue.setCurrentFile(path);
        QCOMPARE(f.flow.SaveByExtension(path), database::TransferOutcome::Done);
        const QByteArray previous = test::fileBytes(path);
        bool greyedWhileSaving = false;
        QTimer::singleShot(0, &f.form, [&] {
            greyedWhileSaving = f.control<QProgressBar>("ProgressBar1")->isVisible() &&
                                !f.view()->isEnabled() && !f.action("guardarb")->isEnabled() &&
                                !f.control<QPushButton>("Command6")->isEnabled();
            f.dialogs.messageAnswers.enqueue(platform::MessageAnswer::No);
            QTest::keyClick(&f.form, Qt::Key_V, Qt::ControlModifier);
        });
        f.flow.save(); // "&Guardar" with a current file: no dialog
        QVERIFY(greyedWhileSaving);
        QVERIFY(f.dialogs.asked.isEmpty());
        if (name.endsWith(QLatin1String("xls")))
            QCOMPARE(test::fileBytes(path), previous);
        const auto stored = database::loadCatalogue(path);
        QVERIFY2(stored, qPrintable(stored.reason()));
        QCOMPARE(stored->rows.size(), 20000);
        QVERIFY(
            std::all_of(stored->rows.begin(), stored->rows.end(),
                        [](const database::CatalogueRecord& r) { return !r.nombre.isEmpty(); }));
        QCOMPARE(f.catalogue.list().count(), 20000);
        QCOMPARE(f.catalogue.list().row(0).nombre, QStringLiteral("19999"));
        QCOMPARE(f.label("lblCurList")->text(), path);
        QCOMPARE(f.label("LblInfo")->text(), QStringLiteral("Agregados 20000 archivos a la base de "
                                                            "datos."));
        QVERIFY(f.action("guardarb")->isEnabled() &&
                f.control<QPushButton>("Command6")->isEnabled() && f.view()->isEnabled());
        QVERIFY(!f.control<QProgressBar>("ProgressBar1")->isVisible());
    }

    // Three files chosen at once, the middle one unreadable: it is reported, the others load
    // in turn, and with two catalogues' rows in the list neither is the current file. Saving
    // while a find hides rows still writes every row, in the list's order.
    void severalFilesLoadInTurnAndAFindSavesEveryRow()
    {
        FlowFixture f;
        const QString first = f.dir.filePath(QStringLiteral("a.xls"));
        const QString bad = f.dir.filePath(QStringLiteral("b.xls"));
        const QString last = f.dir.filePath(QStringLiteral("c.mdb"));
        const QList<database::CatalogueRecord> rows = {{"Canción", "/a/", "Uno", "MP3"},
                                                       {"Otra", "/b/", "Dos", "WAV"}};
        QVERIFY(database::saveCatalogue(first, {}, database::rowsOf(rows.mid(0, 1))).ok);
        QVERIFY(test::writeFile(bad, test::fileBytes(first).left(1000))); // cut short
        QVERIFY(database::saveCatalogue(last, {}, database::rowsOf(rows.mid(1))).ok);
        f.dialogs.fileAnswers.enqueue(first + u'\n' + bad + u'\n' + last);
        f.flow.loadFromFile();
        QCOMPARE(f.catalogue.list().count(), 2);
        QCOMPARE(f.catalogue.list().row(0).nombre, QStringLiteral("Canción"));
        QCOMPARE(f.catalogue.list().row(1).nombre, QStringLiteral("Otra"));
        QCOMPARE(f.dialogs.asked.size(), 2); // the open dialog, then the unreadable file
        QCOMPARE(f.dialogs.asked.last().title, QStringLiteral("Error al leer archivo"));
        QCOMPARE(f.catalogue.currentFile(), QString());

        f.catalogue.list().flush();
        QTest::keyClick(&f.form, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(f.control<QLineEdit>("txtBuscarLista"), QStringLiteral("dos"));
        QCOMPARE(f.view()->model()->rowCount(), 1);
        const QString saved = f.dir.filePath(QStringLiteral("d.xls"));
        QCOMPARE(f.flow.SaveByExtension(saved), database::TransferOutcome::Done);
        const auto stored = database::loadCatalogue(saved);
        QVERIFY2(stored, qPrintable(stored.reason()));
        QCOMPARE(stored->rows, rows);
    }
};

QTEST_MAIN(TestListWindowFileView)
#include "tst_ListWindowFileView.moc"
