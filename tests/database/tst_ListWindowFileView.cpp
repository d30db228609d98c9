#include "catalogue/IListWindow.h"
#include "catalogue/ui/CatalogueView.h"
#include "core/ActivityLog.h"
#include "database/CatalogueFiles.h"
#include "database/flow/CatalogueFileFlow.h"
#include "database/ui/ListWindowFileView.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>

#include "catalogue/Form1Fixture.h"

using namespace nubo;

namespace {

// Records what the view asks of the list window.
class RecordingListWindow final : public catalogue::IListWindow
{
public:
    QStringList calls;
    void showProgress(int maximum) override { calls << QStringLiteral("show %1").arg(maximum); }
    void setProgress(int value) override { calls << QStringLiteral("value %1").arg(value); }
    void hideProgress() override { calls << QStringLiteral("hide"); }
    void setListEnabled(bool enabled) override { calls << QStringLiteral("list %1").arg(enabled); }
    void scrollListToEnd() override {}
    void setCaption(const QString&) override {}
    void setBusyCursor(bool) override {}
    void showAndRaise() override {}
    void startFlashing() override {}
    void setFolderStrip(const QString&) override {}
    void showFolderStrip() override {}
    void setFindMenuVisible(bool) override {}
    void setFindMenuCaption(const QString&) override {}
    void setDriveSpace(const QString&, const QString&) override {}
    QString volumeName() const override { return {}; }
    void setVolumeName(const QString&) override {}
    void setVolumeDetails(const QString&, const QString&, const QString&, const QString&) override
    {
    }
};

} // namespace

// The flow in the list window: Escape pressed during a save stops it, and the list and the
// progress bar come back.
class TestListWindowFileView final : public QObject
{
    Q_OBJECT
private slots:
    // Repaints are coalesced, but the bar always reaches its end, and a second run starts from
    // its own maximum rather than the first one's.
    void theLastValueAlwaysReachesTheBar()
    {
        RecordingListWindow window;
        database::ListWindowFileView view{window};
        view.beginProgress(5);
        for (int value = 1; value <= 5; ++value)
            view.setProgress(value);
        view.endProgress();
        QCOMPARE(window.calls.mid(0, 2), QStringList({"show 5", "list 0"}));
        QCOMPARE(window.calls.mid(window.calls.size() - 3),
                 QStringList({"value 5", "hide", "list 1"}));
        window.calls.clear();
        view.beginProgress(3);
        view.setProgress(3);
        QCOMPARE(window.calls.last(), QStringLiteral("value 3"));
    }

    void escapeStopsASaveAndRestoresTheWindow()
    {
        Form1Fixture f;
        core::ActivityLog log{f.app, [] { return false; }};
        database::SheetSettings sheet;
        database::ListWindowFileView view{f.form};
        database::CatalogueFileFlow flow{{f.catalogue, view, f.dialogs, log, f.options, sheet}};
        QObject::connect(&f.form, &catalogue::Form1::cancelRequested, &flow.transfer(),
                         &database::CatalogueTransfer::raiseCancelFlag);
        for (int i = 0; i < 20000; ++i) // long enough for events to run during the loop
            f.catalogue.list().insertAtTop({QString::number(i), {}, {}, {}, {}});
        bool busyWhileSaving = false;
        QTimer::singleShot(0, &f.form, [&] {
            busyWhileSaving =
                f.control<QProgressBar>("ProgressBar1")->isVisible() && !f.view()->isEnabled();
            QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
            QCoreApplication::sendEvent(&f.form, &escape);
        });
        flow.SaveByExtension(f.dir.filePath(QStringLiteral("l.xls")));
        QVERIFY(busyWhileSaving);
        QVERIFY(
            f.catalogue.info().text().startsWith(QStringLiteral("CANCELADA...Se ha agregado ")));
        QVERIFY(!f.control<QProgressBar>("ProgressBar1")->isVisible());
        QVERIFY(f.view()->isEnabled());
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
        Form1Fixture f;
        core::ActivityLog log{f.app, [] { return false; }};
        database::SheetSettings sheet;
        database::ListWindowFileView view{f.form};
        database::CatalogueFileFlow flow{{f.catalogue, view, f.dialogs, log, f.options, sheet}};
        f.catalogue.setSaveFlow(&flow);
        for (int i = 0; i < 20000; ++i)
            f.catalogue.list().insertAtTop({QString::number(i), "/d/", "g", "MP3", "C:"});
        const QString path = f.dir.filePath(name);
        f.catalogue.setCurrentFile(path);
        QCOMPARE(flow.SaveByExtension(path), database::TransferOutcome::Done);
        const QByteArray previous = test::fileBytes(path);
        bool greyedWhileSaving = false;
        QTimer::singleShot(0, &f.form, [&] {
            greyedWhileSaving = f.control<QProgressBar>("ProgressBar1")->isVisible() &&
                                !f.action("guardarb")->isEnabled() &&
                                !f.control<QPushButton>("Command6")->isEnabled();
            f.dialogs.messageAnswers.enqueue(platform::MessageAnswer::No);
            QTest::keyClick(&f.form, Qt::Key_V, Qt::ControlModifier);
        });
        flow.save(); // "&Guardar" with a current file: no dialog
        QVERIFY(greyedWhileSaving);
        QVERIFY(f.dialogs.asked.isEmpty());
        if (name.endsWith(QLatin1String("xls")))
            QCOMPARE(test::fileBytes(path), previous);
        QString error;
        const auto stored = database::loadCatalogue(path, &error);
        QVERIFY2(stored, qPrintable(error));
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
                f.control<QPushButton>("Command6")->isEnabled());
    }

    // Three files chosen at once, the middle one unreadable: it is reported, the others load
    // in turn and the last one read becomes the current file. Saving while a find hides rows
    // still writes every row, in the list's order.
    void severalFilesLoadInTurnAndAFindSavesEveryRow()
    {
        Form1Fixture f;
        core::ActivityLog log{f.app, [] { return false; }};
        database::SheetSettings sheet;
        database::ListWindowFileView view{f.form};
        database::CatalogueFileFlow flow{{f.catalogue, view, f.dialogs, log, f.options, sheet}};
        const QString first = f.dir.filePath(QStringLiteral("a.xls"));
        const QString bad = f.dir.filePath(QStringLiteral("b.xls"));
        const QString last = f.dir.filePath(QStringLiteral("c.mdb"));
        const QList<database::CatalogueRecord> rows = {{"Canción", "/a/", "Uno", "MP3"},
                                                       {"Otra", "/b/", "Dos", "WAV"}};
        QVERIFY(database::saveCatalogue(first, {}, database::rowsOf(rows.mid(0, 1))).ok);
        QVERIFY(test::writeFile(bad, test::fileBytes(first).left(1000))); // cut short
        QVERIFY(database::saveCatalogue(last, {}, database::rowsOf(rows.mid(1))).ok);
        f.dialogs.fileAnswers.enqueue(first + u'\n' + bad + u'\n' + last);
        flow.loadFromFile();
        QCOMPARE(f.catalogue.list().count(), 2);
        QCOMPARE(f.catalogue.list().row(0).nombre, QStringLiteral("Canción"));
        QCOMPARE(f.catalogue.list().row(1).nombre, QStringLiteral("Otra"));
        QCOMPARE(f.dialogs.asked.size(), 2); // the open dialog, then the unreadable file
        QCOMPARE(f.dialogs.asked.last().title, QStringLiteral("Error al leer archivo"));
        QCOMPARE(f.catalogue.currentFile(), last);

        f.catalogue.list().flush();
        QTest::keyClick(&f.form, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(f.control<QLineEdit>("txtBuscarLista"), QStringLiteral("dos"));
        QCOMPARE(f.view()->model()->rowCount(), 1);
        const QString saved = f.dir.filePath(QStringLiteral("d.xls"));
        QCOMPARE(flow.SaveByExtension(saved), database::TransferOutcome::Done);
        QString error;
        const auto stored = database::loadCatalogue(saved, &error);
        QVERIFY2(stored, qPrintable(error));
        QCOMPARE(stored->rows, rows);
    }
};

QTEST_MAIN(TestListWindowFileView)
#include "tst_ListWindowFileView.moc"
