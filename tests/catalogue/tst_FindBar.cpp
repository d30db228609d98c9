// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ui/FindBar.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QSignalSpy>

#include "Form1Fixture.h"

using namespace nubo::catalogue;

// The find bar in the list window: the view shows the filter, and every command that works on
// view rows reaches the right list row.
class TestFindBar final : public QObject
{
    Q_OBJECT
private slots:
    void findsDeletesAndClosesOverTheShownRows()
    {
        Form1Fixture f;
        CatalogueList& list = f.catalogue.list();
        for (const char* name : {"Álvaro 2", "uno", "Álvaro 1", "dos"}) { // "dos" ends on top
            CatalogueRow row{QString::fromUtf8(name), "/m/", "Grupo", "MP3", "C:"};
            row.details.artist = QStringLiteral("Mercedes Quiroga ") + row.nombre;
            list.insertAtTop(row);
        }
        list.flush();
        QSignalSpy cancels(&f.form, &Form1::cancelRequested);
        auto* field = f.control<QLineEdit>("txtBuscarLista");
        QVERIFY(!field->isVisible());
        QTest::keyClick(f.view(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(field->isVisible());
        // Tags are searched too; a field name holds a word to its column.
        QTest::keyClicks(field, QStringLiteral("ARTISTA:quir"));
        field->insert(QStringLiteral("óga uno"));
        QCOMPARE(f.label("lblBuscarCuenta")->text(), QStringLiteral("1 de 4 archivos"));
        QTest::keyClicks(field, QStringLiteral(" nombre:alvaro"));
        QCOMPARE(f.label("lblBuscarCuenta")->text(), QStringLiteral("0 de 4 archivos"));
        field->clear();
        QTest::keyClicks(field, QStringLiteral("ALVARO"));
        QCOMPARE(f.label("lblBuscarCuenta")->text(), QStringLiteral("2 de 4 archivos"));
        QAbstractItemModel* shown = f.view()->model();
        QCOMPARE(shown->rowCount(), 2);

        // View row 1 is list position 3, below two hidden rows.
        f.view()->setCurrentIndex(shown->index(1, 0));
        QCOMPARE(f.form.focusedPosition(), 3);
        f.view()->selectAll();
        QTest::keyClick(f.view(), Qt::Key_Delete);
        QCOMPARE(list.count(), 2);
        QCOMPARE(list.row(1).nombre, QStringLiteral("uno"));
        QCOMPARE(f.label("lblBuscarCuenta")->text(), QStringLiteral("0 de 2 archivos"));

        QTest::keyClick(field, Qt::Key_Escape);
        QVERIFY(!field->isVisible());
        QCOMPARE(shown->rowCount(), 2);
        QCOMPARE(cancels.size(), 0); // Escape in the field only closes the bar
    }

    // Rows the find hides leave the selection for good; a sort keeps it on the same rows.
    void theSelectionIsOnlyOfRowsInSight()
    {
        Form1Fixture f;
        CatalogueList& list = f.catalogue.list();
        for (const char* name : {"b uno", "a dos", "c uno", "d dos"})
            list.insertAtTop({QString::fromLatin1(name), "/m/", "Grupo", "MP3", "C:"});
        list.flush();
        f.view()->selectAll();
        auto* field = f.control<QLineEdit>("txtBuscarLista");
        QTest::keyClick(f.view(), Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(field, QStringLiteral("dos"));
        QTest::keyClick(field, Qt::Key_Backspace); // "do": widening shows no hidden row again
        QTest::keyClick(field, Qt::Key_Escape);
        QCOMPARE(f.view()->model()->rowCount(), 4);
        QCOMPARE(f.view()->selectionModel()->selectedRows().size(), 2);
        f.action("Eli")->trigger();
        QCOMPARE(list.count(), 2);
        QCOMPARE(list.row(0).nombre, QStringLiteral("c uno"));
        QCOMPARE(list.row(1).nombre, QStringLiteral("b uno"));

        f.view()->setCurrentIndex(f.view()->model()->index(1, 0)); // "b uno" alone
        QHeaderView* header = f.view()->header();
        for (int click = 0; click < 2; ++click) // descending, then ascending
            QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                              QPoint(header->sectionViewportPosition(0) + 5, 5));
        QCOMPARE(list.row(0).nombre, QStringLiteral("b uno"));
        QTest::keyClick(f.view(), Qt::Key_Delete);
        QCOMPARE(list.count(), 1);
        QCOMPARE(list.row(0).nombre, QStringLiteral("c uno"));
    }
};

QTEST_MAIN(TestFindBar)
#include "tst_FindBar.moc"
