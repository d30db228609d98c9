// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ui/CatalogueView.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <QUrl>

#include "Form1Fixture.h"

using namespace nubo::catalogue;
using nubo::platform::MessageAnswer;

namespace {

// Drops the names and lets the list window handle them.
void dropNames(QWidget* viewport, const QStringList& paths)
{
    QMimeData mime;
    QList<QUrl> urls;
    for (const QString& p : paths)
        urls.append(QUrl::fromLocalFile(p));
    mime.setUrls(urls);
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &enter);
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(viewport, &drop);
    QCoreApplication::processEvents();
}

// Whether a user can reach the action: it and every menu that holds it are enabled.
bool reachable(QAction* action)
{
    for (QObject* o = action; o; o = o->parent()) {
        if (auto* menu = qobject_cast<QMenu*>(o); menu && !menu->menuAction()->isEnabled())
            return false;
    }
    return action->isEnabled();
}

} // namespace

// Records what the list window asks of the properties window.
class FakeProperties final : public nubo::catalogue::IPropertiesViewer
{
public:
    QStringList shown, followed;
    QList<nubo::catalogue::RowFacts> facts;
    bool open = false;

    void showProperties(const QString& path) override { shown.append(path); }
    bool isOpen() const override { return open; }
    void followSelection(const QString& path) override { followed.append(path); }
    void showRowFacts(const nubo::catalogue::RowFacts& f) override { facts.append(f); }
    void followRowFacts(const nubo::catalogue::RowFacts& f) override { facts.append(f); }
};

class TestForm1 final : public QObject
{
    Q_OBJECT
private slots:
    // The counts and texts are the catalogue's; here the rows reach the view and the menu entry
    // deletes the selected ones (the Delete key is tried over a find).
    void addingAndDeletingSelectedRows()
    {
        Form1Fixture f;
        f.addMany(10);
        QTRY_COMPARE(f.view()->model()->rowCount(), 10);
        QCOMPARE(f.view()->model()->index(0, 0).data().toString(), QStringLiteral("f9"));
        // The search alone writes the box.
        QVERIFY(f.control<QLineEdit>("txtvolumename")->text().isEmpty());
        QTest::mouseClick(f.view()->viewport(), Qt::LeftButton, {}, f.rowPoint(1));
        QTest::mouseClick(f.view()->viewport(), Qt::LeftButton, Qt::ShiftModifier, f.rowPoint(3));
        f.action("Eli")->trigger();
        QCOMPARE(f.label("Label2")->text(),
                 QStringLiteral("La lista contiene 7 archivos actualmente"));
        QCOMPARE(f.catalogue.list().row(1).nombre, QStringLiteral("f5"));
    }

    // The answers are the catalogue's; here the button, Ctrl+V, the menu and the picture reach it.
    void emptyingFromEachControl()
    {
        Form1Fixture f;
        f.addMany(2);
        f.dialogs.messageAnswers.enqueue(MessageAnswer::Cancel);
        f.control<QPushButton>("Command6")->click();
        f.dialogs.messageAnswers.enqueue(MessageAnswer::Yes); // no save flow: kept
        QTest::keyClick(&f.form, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(f.catalogue.list().count(), 2);
        f.dialogs.messageAnswers.enqueue(MessageAnswer::No);
        f.action("vaciarl")->trigger();
        QCOMPARE(f.view()->model()->rowCount(), 0);
        QCOMPARE(f.dialogs.asked.size(), 3);
        QTest::mouseClick(f.label("Picture2"), Qt::LeftButton);
        QCOMPARE(f.label("LblInfo")->text(),
                 QStringLiteral("No es posible vaciar una lista vacia"));
        QCOMPARE(f.label("LblInfo")->palette().color(QPalette::WindowText), QColor(Qt::red));
    }

    void modesRuleThePopupAndTheDoubleClick()
    {
        Form1Fixture f;
        QWidget* viewport = f.view()->viewport();
        QTest::mouseClick(viewport, Qt::RightButton, {}, QPoint(20, 20));
        QVERIFY(!f.control<QMenu>("mnuOpcionesLista")->isVisible()); // empty list: no popup

        f.options.setValue(nubo::core::Option::DblClkExecute, 1);
        f.add(f.file(QStringLiteral("M/tema.mp3")));
        QTest::mouseClick(viewport, Qt::RightButton, {}, f.rowPoint(0));
        QVERIFY(f.control<QMenu>("mnuOpcionesLista")->isVisible());
        f.control<QMenu>("mnuOpcionesLista")->hide();
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, f.rowPoint(0));
        QCOMPARE(f.shell.calls.size(), 1);
        QCOMPARE(f.shell.calls[0].first, QStringLiteral("open"));

        for (QAction* mode : {f.action("Edit"), f.action("Mover")}) {
            mode->trigger();
            QVERIFY(mode->isChecked() && !f.action("Funcional")->isChecked());
            // The file options are off, the modes stay within reach: the way back.
            for (QAction* option :
                 {f.action("Rep"), f.action("Agr1"), f.action("Eli"), f.action("ChngeName")})
                QVERIFY(!reachable(option));
            for (QAction* way :
                 {f.action("Funcional"), f.action("Edit"), f.action("Mover"), f.action("Reest")})
                QVERIFY(reachable(way));
            QCOMPARE(f.view()->editTriggers(), QAbstractItemView::NoEditTriggers);
            QTest::mouseClick(viewport, Qt::RightButton, {}, f.rowPoint(0));
            QVERIFY(!f.control<QMenu>("mnuOpcionesLista")->isVisible());
            QTest::mouseDClick(viewport, Qt::LeftButton, {}, f.rowPoint(0));
            QCOMPARE(f.shell.calls.size(), 1);
        }
        f.action("Reest")->trigger();
        QCOMPARE(f.form.listMode(), ListMode::Funcional);
        QVERIFY(f.action("Funcional")->isChecked() && !f.action("Mover")->isChecked());
        QVERIFY(reachable(f.action("Rep")) && reachable(f.action("ChngeName")));
        f.action("Edit")->trigger();
        f.action("Funcional")->trigger();
        QCOMPARE(f.form.listMode(), ListMode::Funcional);
        QVERIFY(reachable(f.action("Eli")));
    }

    void f12LeavesWithoutAQuestion()
    {
        Form1Fixture f;
        f.addMany(2);
        QSignalSpy end(&f.form, &Form1::endProgramRequested);
        QTest::keyClick(&f.form, Qt::Key_F12);
        QCOMPARE(end.count(), 1);
        QCOMPARE(f.catalogue.list().count(), 0);
        QVERIFY(f.dialogs.asked.isEmpty());
    }

    void escapeStopsARunningSearch()
    {
        Form1Fixture f;
        QSignalSpy cancel(&f.form, &Form1::cancelRequested);
        f.action("mnuFindFiles")->setVisible(true);
        QTest::keyClick(f.view(), Qt::Key_Escape);
        QCOMPARE(cancel.count(), 1);
        QVERIFY(f.action("mnuFindFiles")->isVisible()); // nothing was running
        f.search.searching = true;
        QTest::keyClick(f.control<QLineEdit>("txtvolumename"), Qt::Key_Escape);
        QVERIFY(!f.action("mnuFindFiles")->isVisible());
        QCOMPARE(f.search.calls, QStringList({"stop", "stop"}));
        f.action("mnuFindFiles")->trigger(); // presses the search button
        QCOMPARE(f.search.calls.last(), QStringLiteral("run"));
    }

    void droppingFilesAndFolders()
    {
        Form1Fixture f;
        const QString a = f.file(QStringLiteral("M/a.mp3"));
        const QString b = f.file(QStringLiteral("M/b.wav"));
        dropNames(f.view()->viewport(), {a, b});
        QCOMPARE(f.catalogue.list().count(), 2);
        QVERIFY(f.dialogs.asked.isEmpty());

        f.dialogs.inputAnswers.enqueue(QStringLiteral("*.mp3"));
        const QString m = f.drive + QStringLiteral("/M");
        dropNames(f.view()->viewport(), {m, a, f.drive});
        QCOMPARE(f.dialogs.asked.size(), 1); // two folders, one question
        QCOMPARE(f.search.calls, QStringList({m + "|*.mp3", f.drive + "|*.mp3"}));
        QCOMPARE(f.catalogue.list().count(), 3);

        f.dialogs.inputAnswers.enqueue(QString());
        dropNames(f.view()->viewport(), {m, a});
        QCOMPARE(f.catalogue.list().count(), 3); // an empty answer stops the whole drop
    }

    // The dragging program is let go before the question and the walk: and it is never told
    // that the files were moved, which would let it delete them.
    void aDropIsACopyFinishedBeforeTheFolderIsSearched()
    {
        Form1Fixture f;
        QWidget* viewport = f.view()->viewport();
        QMimeData mime;
        mime.setUrls({QUrl::fromLocalFile(f.drive)});
        QDragEnterEvent moveOnly(QPoint(10, 10), Qt::MoveAction, &mime, Qt::LeftButton,
                                 Qt::ShiftModifier);
        QCoreApplication::sendEvent(viewport, &moveOnly);
        QVERIFY(!moveOnly.isAccepted());

        QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction | Qt::MoveAction, &mime,
                              Qt::LeftButton, Qt::ShiftModifier);
        enter.setDropAction(Qt::MoveAction);
        QCoreApplication::sendEvent(viewport, &enter);
        QVERIFY(enter.isAccepted());
        QCOMPARE(enter.dropAction(), Qt::CopyAction);
        QDropEvent drop(QPointF(10, 10), Qt::MoveAction | Qt::LinkAction, &mime, Qt::LeftButton,
                        Qt::ShiftModifier);
        QCoreApplication::sendEvent(viewport, &drop);
        QVERIFY(drop.isAccepted());
        QCOMPARE(drop.dropAction(), Qt::LinkAction);
        QVERIFY(f.dialogs.asked.isEmpty());
        QVERIFY(f.search.calls.isEmpty());
        QTRY_COMPARE(f.search.calls, QStringList({f.drive + "|*.*"}));
        QCOMPARE(f.dialogs.asked.size(), 1);
    }

    // Keys and buttons that open other windows (Ctrl+T: tst_Form1View).
    void windowKeysOpenOtherWindows()
    {
        Form1Fixture f;
        QSignalSpy search(&f.form, &Form1::searchWindowRequested);
        QSignalSpy options(&f.form, &Form1::optionsWindowRequested);
        QSignalSpy sheet(&f.form, &Form1::sheetConfigurationRequested);
        QSignalSpy cover(&f.form, &Form1::printCoverRequested);
        QTest::keyClick(f.view(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(f.view(), Qt::Key_P, Qt::ControlModifier);
        QTest::keyClick(&f.form, Qt::Key_F3);
        f.control<QPushButton>("Command7")->click();
        QTest::keyClick(&f.form, Qt::Key_F4);
        QTest::keyClick(&f.form, Qt::Key_F5);
        QTest::keyClick(&f.form, Qt::Key_O, Qt::ControlModifier);
        QTest::keyClick(&f.form, Qt::Key_F1);
        QCOMPARE(search.count(), 3);
        QCOMPARE(options.count(), 1);
        QCOMPARE(sheet.count(), 2);
        QCOMPARE(cover.count(), 1);
        const QList<QAction*> list = f.control<QMenu>("Arch1")->actions();
        QCOMPARE(list.at(list.indexOf(f.action("guardarc")) + 1)->text(),
                 QStringLiteral("&Imprimir tapa..."));
    }

    void closingEmptiesFirstAndHides()
    {
        Form1Fixture f;
        f.addMany(1);
        QSignalSpy scene(&f.form, &Form1::sceneStepBackRequested);
        // "Sí" with nothing saved (no save flow here): the rows and the window stay.
        f.dialogs.messageAnswers.enqueue(MessageAnswer::Yes);
        f.action("ExitProgram")->trigger();
        QVERIFY(f.form.isVisible());
        QCOMPARE(f.catalogue.list().count(), 1);
        QCOMPARE(scene.count(), 0);
        // While a save has the list, the close box is refused.
        f.catalogue.setBusy(true);
        QVERIFY(!f.form.exitProgram());
        f.catalogue.setBusy(false);
        f.dialogs.messageAnswers.enqueue(MessageAnswer::No);
        f.form.close();
        QCOMPARE(f.dialogs.asked.size(), 2);
        QCOMPARE(f.catalogue.list().count(), 0);
        QCOMPARE(scene.count(), 1);
        QVERIFY(!f.form.isVisible());
        QVERIFY(f.search.calls.contains(QStringLiteral("stop")));
    }

    // Opened low on the screen, it is moved up before it grows to its height (or the screen's,
    // where that is shorter), so it ends whole on the screen.
    void opensWindowGrowingToItsHeight()
    {
        Form1Fixture f(QPoint(0, 300));
        QTRY_VERIFY(!f.control<QTimer>("Timer2")->isActive());
        const QRect available = f.form.screen()->availableGeometry();
        QVERIFY(f.form.height() >= std::min(700, available.height() - 50));
        QVERIFY(f.form.y() >= available.top());
        QVERIFY(f.form.geometry().bottom() <= available.bottom());
    }

    // "&Propiedades..." ends the popup, asks for the one selected row, and the open window
    // follows the arrow keys.
    void propertiesOfTheOneSelectedRow()
    {
        Form1Fixture f;
        FakeProperties properties;
        f.form.setPropertiesViewer(&properties);
        const QString first = f.file(QStringLiteral("M/uno.mp3"));
        const QString second = f.file(QStringLiteral("M/dos.mp3"));
        f.add(first);
        f.add(second);
        auto* menu = f.control<QMenu>("mnuOpcionesLista");
        QAction* entry = f.action("mnuPropiedades");
        QCOMPARE(menu->actions().last(), entry);
        QTest::mouseClick(f.view()->viewport(), Qt::LeftButton, {}, f.rowPoint(0));
        QTest::mouseClick(f.view()->viewport(), Qt::RightButton, {}, f.rowPoint(0));
        QVERIFY(entry->isEnabled());
        entry->trigger();
        menu->hide();
        QCOMPARE(properties.shown, QStringList{second});
        QTest::keyClick(f.view(), Qt::Key_Down); // closed: nothing to follow
        properties.open = true;
        QTest::keyClick(f.view(), Qt::Key_Up);
        QCOMPARE(properties.followed, QStringList{second});
        f.view()->selectAll();
        QTest::mouseClick(f.view()->viewport(), Qt::RightButton, {}, f.rowPoint(0));
        QVERIFY(!entry->isEnabled());
        menu->hide();
        // While a find hides the top row, the shown row is the one asked for.
        QTest::keyClick(f.view(), Qt::Key_F, Qt::ControlModifier);
        f.control<QLineEdit>("txtBuscarLista")->setText(QStringLiteral("uno"));
        QTest::mouseClick(f.view()->viewport(), Qt::LeftButton, {}, f.rowPoint(1));
        QTest::mouseClick(f.view()->viewport(), Qt::RightButton, {}, f.rowPoint(1));
        entry->trigger();
        menu->hide();
        QCOMPARE(properties.shown.last(), first);
    }

    // "&Discos..." opens the disc window by its key; "&Propiedades..." on a row whose disc is in
    // no drive shows every column of the row and its disc's record.
    void discsWindowAndPropertiesOfAnAbsentDisc()
    {
        Form1Fixture f;
        FakeProperties properties;
        f.form.setPropertiesViewer(&properties);
        CatalogueRow row{"tema", "\\Musica\\", "Disco 1", "MP3", "NN"};
        row.details.artist = QStringLiteral("Mercedes Quiroga");
        row.details.duration = 185;
        f.catalogue.list().appendAtBottom(row);
        nubo::core::DiscRecord disc;
        disc.origen = QStringLiteral("Disco 1");
        disc.ubicacion = QStringLiteral("Estante 3");
        f.catalogue.discs().merge({disc});
        QCOMPARE(f.action("mnuDiscos")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_D));
        QTest::keyClick(f.view(), Qt::Key_D, Qt::ControlModifier);
        auto* discs = f.form.findChild<QWidget*>(QStringLiteral("DiscsWindow"));
        QVERIFY(discs && discs->isVisible());
        discs->close();

        QTest::mouseClick(f.view()->viewport(), Qt::LeftButton, {}, f.rowPoint(0));
        QTest::mouseClick(f.view()->viewport(), Qt::RightButton, {}, f.rowPoint(0));
        QAction* entry = f.action("mnuPropiedades");
        QVERIFY(entry->isEnabled());
        entry->trigger();
        f.control<QMenu>("mnuOpcionesLista")->hide();
        QVERIFY(properties.shown.isEmpty());
        QCOMPARE(properties.facts.size(), 1);
        const RowFacts& facts = properties.facts.first();
        QCOMPARE(facts.fileName, QStringLiteral("tema.MP3"));
        QCOMPARE(facts.columns.size(), kColumnCount);
        QCOMPARE(facts.columns.at(int(Column::Origen)),
                 std::pair(QStringLiteral("ORIGEN"), row.origen));
        QCOMPARE(facts.columns.at(int(Column::Artista)).second, row.details.artist);
        QCOMPARE(facts.columns.last(),
                 std::pair(QStringLiteral("DURACION"), QStringLiteral("3:05")));
        QCOMPARE(facts.disc.at(int(nubo::core::DiscField::Ubicacion)),
                 std::pair(QStringLiteral("UBICACION"), disc.ubicacion));
    }

    // The scrollbar and the details box narrow the list; FORMATO stays in sight.
    void theFourColumnsFitTheVisibleWidth()
    {
        Form1Fixture f;
        QTRY_VERIFY(!f.control<QTimer>("Timer2")->isActive());
        QHeaderView* header = f.view()->header();
        const auto shown = [header] {
            return header->sectionSize(0) + header->sectionSize(1) + header->sectionSize(2) +
                   header->sectionSize(3);
        };
        header->resizeSection(0, header->sectionSize(0) * 2);
        f.addMany(80);
        f.catalogue.list().flush();
        QTRY_VERIFY(f.view()->verticalScrollBar()->isVisible());
        QTRY_COMPARE(shown(), f.view()->viewport()->width());
        const int wide = header->sectionSize(0);
        QVERIFY(wide > header->sectionSize(1) * 3 / 2); // the user's proportions are kept
        f.control<QPlainTextEdit>("txtMp3Info")->setVisible(true);
        QTRY_VERIFY(header->sectionSize(0) < wide);
        QCOMPARE(shown(), f.view()->viewport()->width());
        QCOMPARE(header->sectionSize(4), 0);
    }
};

QTEST_MAIN(TestForm1)
#include "tst_Form1.moc"
