// SPDX-License-Identifier: GPL-3.0-or-later
// The list window as the user sees and types into it: where the keyboard is after the
// always-on-top switch and the "open with" chooser, the message line under the list, and the
// details box.
#include "catalogue/ui/CatalogueView.h"

#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTimer>

#include "Form1Fixture.h"

using namespace nubo::catalogue;
using nubo::platform::MessageAnswer;

namespace {

// The header's sections that take room, left to right.
QList<int> sectionsInSight(const QHeaderView* header)
{
    QList<int> shown;
    for (int c = 0; c < header->count(); ++c) {
        if (!header->isSectionHidden(c) && header->sectionSize(c) > 0)
            shown.append(c);
    }
    return shown;
}

bool fillsTheWidth(const CatalogueView* view)
{
    int sum = 0;
    for (const int c : sectionsInSight(view->header()))
        sum += view->header()->sectionSize(c);
    return sum == view->viewport()->width();
}

// The detail columns a second window over the fixture's catalogue shows when it opens.
QList<int> detailColumnsOfASecondWindow(Form1Fixture& f)
{
    Form1 second{{f.app, f.catalogue, f.opener, f.details, f.drops, f.options}};
    second.show();
    if (!QTest::qWaitForWindowExposed(&second))
        return {-1};
    const QHeaderView* header = nubo::test::control<CatalogueView>(second, "ListView1")->header();
    QList<int> shown;
    for (int c = kTextColumnCount; c < kColumnCount; ++c) {
        if (!header->isSectionHidden(c))
            shown.append(c);
    }
    return shown;
}

} // namespace

class TestForm1View final : public QObject
{
    Q_OBJECT
private slots:
    // Ctrl+T and the pin keep the same active window and the keyboard where it was, so a
    // second Ctrl+T (or Delete) reaches it; twice is back to normal with the "off" picture.
    void alwaysOnTopKeepsTheKeyboard()
    {
        Form1Fixture f;
        const auto picture = [&f](const char* name, Qt::GlobalColor colour) {
            QImage image(8, 8, QImage::Format_RGB32);
            image.fill(colour);
            QVERIFY(QDir().mkpath(f.appDir.filePath("bitmap")));
            QVERIFY(image.save(f.appDir.filePath(QStringLiteral("bitmap/") + name)));
        };
        picture("bool2.jpg", Qt::blue);
        picture("bool3.jpg", Qt::red);
        f.form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f.form));
        f.view()->setFocus();
        const auto press = [&f](bool onPicture) {
            if (onPicture)
                QTest::mouseClick(f.label("PicOnTop"), Qt::LeftButton);
            else
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_T, Qt::ControlModifier);
        };
        for (const bool onPicture : {false, true}) {
            for (const bool on : {true, false}) {
                press(onPicture);
                QCOMPARE(f.form.isOnTop(), on);
                QCOMPARE(f.control<QCheckBox>("Check1")->isChecked(), on);
                QCOMPARE(bool(f.form.windowFlags() & Qt::WindowStaysOnTopHint), on);
                QTRY_COMPARE(QApplication::activeWindow(), &f.form);
                QTRY_COMPARE(QApplication::focusWidget(), f.view());
                const QColor shown = f.label("PicOnTop")->pixmap().toImage().pixelColor(4, 4);
                QCOMPARE(shown.red() > shown.blue(), on);
            }
        }
    }

    // A file without an application: the chooser, cancelled, leaves no name being edited
    // (the click that began the double click would otherwise start one) and the keyboard with
    // the list.
    void cancelledChooserLeavesNoEditor()
    {
        Form1Fixture f;
        f.options.setValue(nubo::core::Option::DblClkExecute, 1);
        f.add(f.file(QStringLiteral("M/tema.xyz")));
        f.form.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f.form));
        f.shell.openResult = nubo::platform::IShell::Result::NoAssociation;
        f.shell.openWithResult = false;
        f.shell.whileChoosing = [] { QTest::qWait(QApplication::doubleClickInterval() + 200); };
        QWidget* viewport = f.view()->viewport();
        QTest::mouseClick(viewport, Qt::LeftButton, {}, f.rowPoint(0));
        QTest::qWait(QApplication::doubleClickInterval() + 50);
        // The desktop's sequence: a click, then a press that is a double click, then a release.
        QTest::mouseClick(viewport, Qt::LeftButton, {}, f.rowPoint(0));
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, f.rowPoint(0));
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, f.rowPoint(0));
        QCOMPARE(f.shell.calls.last().first, QStringLiteral("openWith"));
        QTest::qWait(QApplication::doubleClickInterval() + 200);
        for (const QLineEdit* editor : f.view()->viewport()->findChildren<QLineEdit*>())
            QVERIFY(!editor->isVisible());
        QTRY_COMPARE(QApplication::focusWidget(), f.view());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(f.catalogue.list().row(0).nombre, QStringLiteral("tema"));
    }

    // The box never shows what it held before the option was switched, nor another row's tag
    // once the rows under a still pointer have changed; zero-byte padding draws as nothing.
    // A file that is no MP3 (leame.txt, at the bottom) hides the box.
    void detailsBoxShowsOnlyTheRowUnderThePointer()
    {
        Form1Fixture f;
        f.options.setValue(nubo::core::Option::MostrarPro, 1);
        f.add(f.file(QStringLiteral("M/leame.txt")));
        f.add(writeTagged(f, QStringLiteral("a.mp3"), "Hola", "Ana", '\0'));
        f.add(writeTagged(f, QStringLiteral("b.mp3"), {}, "Luis"));
        f.add(writeTagged(f, QStringLiteral("c.mp3"), "Otra", "Eva"));
        const auto pointAt = [&f](int position) {
            emit f.view()->pointerOverRow(f.viewIndex(position));
        };
        const auto* box = f.control<QPlainTextEdit>("txtMp3Info");
        pointAt(2);
        QVERIFY(f.form.detailsText().startsWith(QStringLiteral("Titulo: Hola") + QChar(0)));
        QVERIFY(box->toPlainText().startsWith(QStringLiteral("Titulo: Hola\n")));
        QVERIFY(!box->toPlainText().contains(QChar(0)));

        f.form.forgetDetails(); // the option switched off and on
        pointAt(1);
        QVERIFY(f.form.detailsText().startsWith(QStringLiteral("\r\nArtista: Luis")));

        pointAt(0);
        QVERIFY(f.form.detailsText().startsWith(QStringLiteral("Titulo: Otra")));
        f.catalogue.SortByColumn(0);
        f.catalogue.SortByColumn(0); // ascending: a.mp3 now lies under the pointer
        pointAt(0);
        QVERIFY(f.form.detailsText().startsWith(QStringLiteral("Titulo: Hola")));

        f.view()->setCurrentIndex(f.viewIndex(0));
        QTest::keyClick(f.view(), Qt::Key_Down); // shows the focused b.mp3
        QVERIFY(f.form.detailsText().contains(QStringLiteral("Artista: Luis")));
        pointAt(0);
        QVERIFY(!f.form.detailsText().contains(QStringLiteral("Luis")));

        f.catalogue.DeleteSelectedRows({0});
        pointAt(0);
        QVERIFY(f.form.detailsText().contains(QStringLiteral("Artista: Luis")));

        QTest::mouseClick(f.view()->viewport(), Qt::LeftButton, {}, f.rowPoint(1));
        QVERIFY(box->isVisible());
        QVERIFY(!f.view()->toolTip().isEmpty());
        QTest::keyClick(f.view(), Qt::Key_Down);
        QVERIFY(!box->isVisible());
    }

    // The box and the tooltip forget a row once it is deleted or the list emptied; they keep
    // a row that was only moved.
    void detailsGoWithTheirRow()
    {
        Form1Fixture f;
        f.options.setValue(nubo::core::Option::MostrarPro, 1);
        f.add(writeTagged(f, QStringLiteral("a.mp3"), "Hola", "Ana"));
        f.add(writeTagged(f, QStringLiteral("b.mp3"), "Otra", "Eva"));
        const auto* box = f.control<QPlainTextEdit>("txtMp3Info");
        const auto clickRow = [&f](int position) {
            QTest::mouseClick(f.view()->viewport(), Qt::LeftButton, {}, f.rowPoint(position));
        };
        clickRow(0);
        QVERIFY(box->toPlainText().contains(QStringLiteral("Otra")));
        f.catalogue.SortByColumn(0);
        QVERIFY(box->toPlainText().contains(QStringLiteral("Otra")));
        QTest::keyClick(f.view(), Qt::Key_Delete);
        QCOMPARE(f.catalogue.list().count(), 1);
        QVERIFY(box->toPlainText().isEmpty() && f.form.detailsText().isEmpty());
        QVERIFY(f.view()->toolTip().isEmpty());
        clickRow(0);
        QVERIFY(box->toPlainText().contains(QStringLiteral("Hola")));
        f.dialogs.messageAnswers.enqueue(MessageAnswer::No);
        f.action("vaciarl")->trigger();
        QCOMPARE(f.catalogue.list().count(), 0);
        QVERIFY(box->toPlainText().isEmpty() && f.view()->viewport()->toolTip().isEmpty());
    }

    // The header's right click offers the detail columns; checked ones appear beside the four
    // and share the width down to a readable one, past which the list scrolls sideways.
    void columnChooserShowsAndHidesColumns()
    {
        Form1Fixture f;
        QHeaderView* header = f.view()->header();
        const int width = f.view()->viewport()->width();
        QCOMPARE(sectionsInSight(header), QList<int>({0, 1, 2, 3}));
        QVERIFY(fillsTheWidth(f.view()));

        QContextMenuEvent click(QContextMenuEvent::Mouse, QPoint(10, 5),
                                header->mapToGlobal(QPoint(10, 5)));
        QApplication::sendEvent(header->viewport(), &click);
        auto* menu = f.control<QMenu>("mnuColumnas");
        QTRY_VERIFY(menu->isVisible());
        menu->close();
        // No "ini" folder yet: the columns still show, and the message line says the choice
        // was not kept.
        f.action("mnuColumnaTAMANO")->trigger();
        QCOMPARE(f.label("LblInfo")->text(),
                 QStringLiteral("No se pudo guardar que columnas se muestran"));
        QVERIFY(QDir(f.appDir.path()).mkdir(QStringLiteral("ini")));
        f.action("mnuColumnaARTISTA")->trigger();
        QCOMPARE(sectionsInSight(header), QList<int>({0, 1, 2, 3, 5, 8}));
        QVERIFY(fillsTheWidth(f.view()));
        QTRY_VERIFY(!f.view()->horizontalScrollBar()->isVisible());

        for (const char* key : {"FECHA", "TITULO", "ALBUM", "ANO", "PISTA", "GENERO", "DURACION"})
            f.action((QByteArray("mnuColumna") + key).constData())->trigger();
        QCOMPARE(sectionsInSight(header).size(), 13);
        for (const int c : sectionsInSight(header)) {
            const QString caption = header->model()->headerData(c, Qt::Horizontal).toString();
            QVERIFY(header->sectionSize(c) >= header->fontMetrics().horizontalAdvance(caption));
        }
        QTRY_VERIFY(f.view()->horizontalScrollBar()->isVisible());
        for (const char* key : {"FECHA", "TITULO", "ALBUM", "ANO", "PISTA", "GENERO", "DURACION"})
            f.action((QByteArray("mnuColumna") + key).constData())->trigger();
        QTRY_VERIFY(!f.view()->horizontalScrollBar()->isVisible());
        QVERIFY(fillsTheWidth(f.view()));
        QCOMPARE(f.view()->viewport()->width(), width);

        // Keyboard users reach the same entries from "&Lista".
        QVERIFY(f.control<QMenu>("Arch1")->actions().contains(menu->menuAction()));
    }

    // A new window shows the columns chosen in the last one; a click on a detail column's
    // header sorts it as numbers, the first click descending.
    void columnChoiceIsKeptAndItsColumnsSort()
    {
        Form1Fixture f;
        QVERIFY(QDir(f.appDir.path()).mkdir(QStringLiteral("ini")));
        f.action("mnuColumnaTAMANO")->trigger();
        f.action("mnuColumnaARTISTA")->trigger();
        QHeaderView* header = f.view()->header();
        QCOMPARE(detailColumnsOfASecondWindow(f),
                 (QList<int>{int(Column::Tamano), int(Column::Artista)}));

        for (const qint64 size : {9, -1, 10}) {
            CatalogueRow r{QString::number(size), "/m/", "G", "MP3", "NN"};
            r.details.size = size;
            f.catalogue.list().insertAtTop(r);
        }
        f.catalogue.list().flush();
        const QRect tamano(header->sectionViewportPosition(int(Column::Tamano)), 0,
                           header->sectionSize(int(Column::Tamano)), header->height());
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, tamano.center());
        QCOMPARE(f.catalogue.list().row(0).nombre, QStringLiteral("10")); // first click: down
        QCOMPARE(f.catalogue.list().row(2).nombre, QStringLiteral("-1"));
        QCOMPARE(f.view()->model()->index(0, int(Column::Tamano)).data().toString(),
                 QStringLiteral("10"));
    }

    // A file of another kind, or one damaged, shows the four alone; keys are read whatever
    // their case, blanks or line ends.
    void columnChoiceFileIsReadWithCare_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QList<int>>("shown");
        QTest::newRow("another section") << QByteArray("[OTRA]\nTAMANO=1\n") << QList<int>{};
        QTest::newRow("not text") << QByteArray(300, '\0') << QList<int>{};
        QTest::newRow("written by hand")
            << QByteArray("[columnas]\r\n artista = 1\r\nAno=1\r\nFECHA=0\r\nPISTA=si\r\n")
            << QList<int>{int(Column::Artista), int(Column::Ano)};
    }
    void columnChoiceFileIsReadWithCare()
    {
        QFETCH(QByteArray, file);
        QFETCH(QList<int>, shown);
        Form1Fixture f;
        nubo::test::writeFile(f.appDir.filePath(QStringLiteral("ini/Columnas.nbo")), file);
        QCOMPARE(detailColumnsOfASecondWindow(f), shown);
    }

    // Messages of one or two lines, and none, leave the list where it is.
    void messagesLeaveTheListInPlace()
    {
        Form1Fixture f;
        f.addMany(3);
        QTRY_VERIFY(!f.control<QTimer>("Timer2")->isActive());
        QTest::qWait(20);
        const QRect before = f.view()->geometry();
        const QString words = QStringLiteral("Han sido agregados muchos archivos a la lista ");
        for (const QString& text : {words.repeated(6), QString(), words, words.repeated(3)}) {
            f.catalogue.ShowInfoMessage(text, 10000, 0xFFFFFF);
            QTest::qWait(20);
            QCOMPARE(f.view()->geometry(), before);
        }
    }
};

QTEST_MAIN(TestForm1View)
#include "tst_Form1View.moc"
