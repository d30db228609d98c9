#include "catalogue/ui/CatalogueView.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>
#include <QUrl>

#include "Form1Fixture.h"

using namespace nubo::catalogue;
using nubo::platform::MessageAnswer;

namespace {

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
}

} // namespace

class TestForm1 final : public QObject
{
    Q_OBJECT
private slots:
    // The drive column is kept for saving but takes no width.
    void addingShowsRowsAndTheCountLine()
    {
        Form1Fixture f;
        QTRY_VERIFY(!f.form.Timer2->isActive());
        QCOMPARE(f.form.ListView1->header()->sectionSize(4), 0);
        QVERIFY(f.form.ListView1->header()->sectionSize(0) > 0);
        f.catalogue.setGroupName(QStringLiteral("CD 1"));
        f.addMany(3);
        QTRY_COMPARE(f.form.ListView1->model()->rowCount(), 3);
        QCOMPARE(f.form.ListView1->model()->index(0, 0).data().toString(), QStringLiteral("f2"));
        QCOMPARE(f.form.Label2->text(), QStringLiteral("La lista contiene 3 archivos actualmente"));
        QCOMPARE(f.form.txtvolumename->text(), QStringLiteral("CD 1"));
    }

    // The counts and texts are the catalogue's; here the Delete key and the menu entry reach it.
    void deletingSelectedRows()
    {
        Form1Fixture f;
        f.addMany(10);
        QTest::mouseClick(f.form.ListView1->viewport(), Qt::LeftButton, {}, f.rowPoint(1));
        QTest::mouseClick(f.form.ListView1->viewport(), Qt::LeftButton, Qt::ShiftModifier,
                          f.rowPoint(3));
        QTest::keyClick(f.form.ListView1, Qt::Key_Delete);
        QCOMPARE(f.catalogue.list().count(), 7);
        QTest::mouseClick(f.form.ListView1->viewport(), Qt::LeftButton, {}, f.rowPoint(0));
        f.form.Eli->trigger();
        QCOMPARE(f.form.Label2->text(), QStringLiteral("La lista contiene 6 archivo actualmente"));
        QCOMPARE(f.catalogue.list().row(0).nombre, QStringLiteral("f5"));
    }

    // The answers are the catalogue's; here the button, Ctrl+V, the menu and the picture reach it.
    void emptyingFromEachControl()
    {
        Form1Fixture f;
        f.addMany(2);
        f.dialogs.messageAnswers.enqueue(MessageAnswer::Cancel);
        f.form.Command6->click();
        f.dialogs.messageAnswers.enqueue(MessageAnswer::Yes); // no save flow: kept
        QTest::keyClick(&f.form, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(f.catalogue.list().count(), 2);
        f.dialogs.messageAnswers.enqueue(MessageAnswer::No);
        f.form.vaciarl->trigger();
        QCOMPARE(f.form.ListView1->model()->rowCount(), 0);
        QCOMPARE(f.dialogs.asked.size(), 3);
        QTest::mouseClick(f.form.Picture2, Qt::LeftButton);
        QCOMPARE(f.form.LblInfo->text(), QStringLiteral("No es posible vaciar una lista vacia"));
        QCOMPARE(f.form.LblInfo->palette().color(QPalette::WindowText), QColor(Qt::red));
    }

    void modesRuleThePopupAndTheDoubleClick()
    {
        Form1Fixture f;
        QWidget* viewport = f.form.ListView1->viewport();
        QTest::mouseClick(viewport, Qt::RightButton, {}, QPoint(20, 20));
        QVERIFY(!f.form.mnuOpcionesLista->isVisible()); // empty list: no popup

        f.options.setValue(nubo::core::Option::DblClkExecute, 1);
        f.add(f.file(QStringLiteral("M/tema.mp3")));
        QTest::mouseClick(viewport, Qt::RightButton, {}, f.rowPoint(0));
        QVERIFY(f.form.mnuOpcionesLista->isVisible());
        f.form.mnuOpcionesLista->hide();
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, f.rowPoint(0));
        QCOMPARE(f.shell.calls.size(), 1);
        QCOMPARE(f.shell.calls[0].first, QStringLiteral("open"));

        for (QAction* mode : {f.form.Edit, f.form.Mover}) {
            mode->trigger();
            QVERIFY(mode->isChecked() && !f.form.Funcional->isChecked());
            QVERIFY(!f.form.mnuOpcionesLista->menuAction()->isEnabled());
            QCOMPARE(f.form.ListView1->editTriggers(), QAbstractItemView::NoEditTriggers);
            QTest::mouseClick(viewport, Qt::RightButton, {}, f.rowPoint(0));
            QVERIFY(!f.form.mnuOpcionesLista->isVisible());
            QTest::mouseDClick(viewport, Qt::LeftButton, {}, f.rowPoint(0));
            QCOMPARE(f.shell.calls.size(), 1);
        }
        f.form.Mover->trigger(); // the checked item again: nothing changes
        QCOMPARE(f.form.listMode(), ListMode::Mover);
        f.form.Reest->trigger();
        QCOMPARE(f.form.listMode(), ListMode::Funcional);
        QVERIFY(f.form.Funcional->isChecked() && !f.form.Mover->isChecked());
        QVERIFY(f.form.mnuOpcionesLista->menuAction()->isEnabled());
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
        f.form.mnuFindFiles->setVisible(true);
        QTest::keyClick(f.form.ListView1, Qt::Key_Escape);
        QCOMPARE(cancel.count(), 1);
        QVERIFY(f.form.mnuFindFiles->isVisible()); // nothing was running
        f.search.searching = true;
        QTest::keyClick(f.form.txtvolumename, Qt::Key_Escape);
        QVERIFY(!f.form.mnuFindFiles->isVisible());
        QCOMPARE(f.search.calls, QStringList({"stop", "stop"}));
        f.form.mnuFindFiles->trigger(); // presses the search button
        QCOMPARE(f.search.calls.last(), QStringLiteral("run"));
    }

    void droppingFilesAndFolders()
    {
        Form1Fixture f;
        const QString a = f.file(QStringLiteral("M/a.mp3"));
        const QString b = f.file(QStringLiteral("M/b.wav"));
        dropNames(f.form.ListView1->viewport(), {a, b});
        QCOMPARE(f.catalogue.list().count(), 2);
        QVERIFY(f.dialogs.asked.isEmpty());

        f.dialogs.inputAnswers.enqueue(QStringLiteral("*.mp3"));
        const QString m = f.drive + QStringLiteral("/M");
        dropNames(f.form.ListView1->viewport(), {m, a, f.drive});
        QCOMPARE(f.dialogs.asked.size(), 1); // two folders, one question
        QCOMPARE(f.dialogs.asked[0].title, QStringLiteral("Defina una extencion!"));
        QCOMPARE(
            f.dialogs.asked[0].text,
            QStringLiteral("Ingrese la extencion de los arhivos que desea agregar a la lista "));
        QCOMPARE(f.search.calls, QStringList({m + "|*.mp3", f.drive + "|*.mp3"}));
        QCOMPARE(f.catalogue.list().count(), 3);

        f.dialogs.inputAnswers.enqueue(QString());
        dropNames(f.form.ListView1->viewport(), {m, a});
        QCOMPARE(f.catalogue.list().count(), 3); // an empty answer stops the whole drop
    }

    void ctrlTTogglesAlwaysOnTop()
    {
        Form1Fixture f;
        QTest::keyClick(&f.form, Qt::Key_T, Qt::ControlModifier);
        QVERIFY(f.form.isOnTop() && f.form.Check1->isChecked());
        QVERIFY(f.form.windowFlags() & Qt::WindowStaysOnTopHint);
        QVERIFY(f.form.isVisible());
        QTest::mouseClick(f.form.PicOnTop, Qt::LeftButton);
        QVERIFY(!f.form.isOnTop());
        QVERIFY(!(f.form.windowFlags() & Qt::WindowStaysOnTopHint));
    }

    void windowKeysAskForOtherWindows()
    {
        Form1Fixture f;
        QSignalSpy search(&f.form, &Form1::searchWindowRequested);
        QSignalSpy options(&f.form, &Form1::optionsWindowRequested);
        QSignalSpy sheet(&f.form, &Form1::sheetConfigurationRequested);
        QSignalSpy cover(&f.form, &Form1::printCoverRequested);
        QTest::keyClick(f.form.ListView1, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(f.form.ListView1, Qt::Key_P, Qt::ControlModifier);
        QTest::keyClick(&f.form, Qt::Key_F3);
        f.form.Command7->click();
        QTest::keyClick(&f.form, Qt::Key_F4);
        QTest::keyClick(&f.form, Qt::Key_F5);
        QTest::keyClick(&f.form, Qt::Key_O, Qt::ControlModifier);
        QTest::keyClick(&f.form, Qt::Key_F1);
        QCOMPARE(search.count(), 3);
        QCOMPARE(options.count(), 1);
        QCOMPARE(sheet.count(), 2);
        QCOMPARE(cover.count(), 1);
        const QList<QAction*> list = f.form.Arch1->actions();
        QCOMPARE(list.at(list.indexOf(f.form.guardarc) + 1)->text(),
                 QStringLiteral("&Imprimir tapa..."));
    }

    void closingEmptiesFirstAndHides()
    {
        Form1Fixture f;
        f.addMany(1);
        QSignalSpy scene(&f.form, &Form1::sceneStepBackRequested);
        // "Sí" with nothing saved (no save flow here): the rows and the window stay.
        f.dialogs.messageAnswers.enqueue(MessageAnswer::Yes);
        f.form.ExitProgram->trigger();
        QVERIFY(f.form.isVisible());
        QCOMPARE(f.catalogue.list().count(), 1);
        QCOMPARE(scene.count(), 0);
        // While a save has the list, its commands are greyed and the close box is refused.
        f.catalogue.setBusy(true);
        QVERIFY(!f.form.guardarb->isEnabled() && !f.form.Command6->isEnabled());
        QVERIFY(!f.form.exitProgram());
        f.catalogue.setBusy(false);
        QVERIFY(f.form.guardarb->isEnabled() && f.form.vaciarl->isEnabled());
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
        QTRY_VERIFY(!f.form.Timer2->isActive());
        const QRect available = f.form.screen()->availableGeometry();
        QVERIFY(f.form.height() >= std::min(700, available.height() - 50));
        QVERIFY(f.form.y() >= available.top());
        QVERIFY(f.form.geometry().bottom() <= available.bottom());
    }

    void selectedRowShowsItsTagDetails()
    {
        Form1Fixture f;
        f.options.setValue(nubo::core::Option::MostrarPro, 1);
        QByteArray tag(128, ' ');
        tag.replace(0, 3, "TAG");
        tag.replace(3, 4, "Hola");
        tag[127] = char(0);
        nubo::test::writeFile(f.drive + QStringLiteral("/M/tema.mp3"), QByteArray(200, 'x') + tag);
        f.add(f.drive + QStringLiteral("/M/tema.mp3"));
        f.add(f.file(QStringLiteral("M/leame.txt")));
        QTest::mouseClick(f.form.ListView1->viewport(), Qt::LeftButton, {}, f.rowPoint(1));
        QVERIFY(f.form.txtMp3Info->isVisible());
        QVERIFY(f.form.detailsText().startsWith(QStringLiteral("Titulo: Hola")));
        QVERIFY(f.form.detailsText().endsWith(QStringLiteral("Genero: Blues\r\n")));
        QVERIFY(!f.form.ListView1->toolTip().isEmpty());
        QTest::keyClick(f.form.ListView1, Qt::Key_Up);
        QVERIFY(!f.form.txtMp3Info->isVisible());
    }
};

QTEST_MAIN(TestForm1)
#include "tst_form1.moc"
