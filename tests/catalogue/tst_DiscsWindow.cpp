// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ui/DiscsWindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include "CatalogueFixture.h"

using namespace nubo::catalogue;
using nubo::core::DiscField;

namespace {

struct WindowFixture : CatalogueFixture
{
    QTemporaryDir appDir;
    nubo::platform::AppFolder app{appDir.path()};
    DiscsWindow window{catalogue, app};
    QTableView* table = window.findChild<QTableView*>(QStringLiteral("tblDiscos"));

    WindowFixture()
    {
        catalogue.list().insertAtTop(rowOf(QStringLiteral("Disco 1"), 100, 200));
        catalogue.list().insertAtTop(rowOf(QStringLiteral("Disco 1"), 20, 105));
        catalogue.list().insertAtTop(rowOf(QStringLiteral("Disco 2"), 3, -1));
        window.open();
        if (!QTest::qWaitForWindowExposed(&window))
            qWarning("the Discos window was not exposed");
    }
    QString text(const char* name)
    {
        return window.findChild<QLabel*>(QLatin1String(name))->text();
    }
    QString cell(int row, DiscField field)
    {
        return table->model()->index(row, int(field)).data().toString();
    }
    // F2 on the current cell, the text typed over what was there, Enter.
    void typeInCurrentCell(const QString& typed)
    {
        QTest::keyClick(table, Qt::Key_F2);
        auto* editor = table->findChild<QLineEdit*>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClicks(editor, typed);
        QTest::keyClick(editor, Qt::Key_Return);
        // The view commits once the key is handled, and frees the editor later.
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

} // namespace

class TestDiscsWindow final : public QObject
{
    Q_OBJECT

private slots:
    // Opened on the first disc's UBICACION with the totals; typed by keyboard alone; the
    // totals follow the rows; Escape closes.
    void editsTheDiscsByKeyboard()
    {
        WindowFixture f;
        QCOMPARE(f.window.windowTitle(), QStringLiteral("Discos"));
        QCOMPARE(f.text("lblTotales"), QStringLiteral("Total: 2 discos, 3 archivos, 123 bytes, "
                                                      "0:05:05"));
        QCOMPARE(f.table->currentIndex().column(), int(DiscField::Ubicacion));
        f.typeInCurrentCell(QStringLiteral("Estante 3, caja azul"));
        QCOMPARE(f.catalogue.discs().find(QStringLiteral("Disco 1"))->ubicacion,
                 QStringLiteral("Estante 3, caja azul"));
        QTest::keyClick(f.table, Qt::Key_Tab);
        QCOMPARE(f.table->currentIndex().column(), int(DiscField::Notas));
        f.typeInCurrentCell(QStringLiteral("prestado a Luis"));
        QCOMPARE(f.cell(0, DiscField::Notas), QStringLiteral("prestado a Luis"));

        // A refused name says why; a good one renames the rows.
        f.table->setCurrentIndex(f.table->model()->index(1, int(DiscField::Origen)));
        f.typeInCurrentCell(QStringLiteral("Disco 1"));
        QCOMPARE(f.text("lblMensaje"),
                 QStringLiteral("Ya hay un disco llamado \"Disco 1\": elija otro nombre."));
        f.typeInCurrentCell(QStringLiteral("Jazz"));
        QCOMPARE(f.catalogue.list().row(0).origen, QStringLiteral("Jazz"));
        QVERIFY(f.text("lblMensaje").isEmpty());

        f.catalogue.list().insertAtTop(rowOf(QStringLiteral("Disco 3"), 1, 1));
        QTRY_COMPARE(f.text("lblTotales"),
                     QStringLiteral("Total: 3 discos, 4 archivos, 124 bytes, 0:05:06"));
        QTest::keyClick(f.table, Qt::Key_Escape);
        QVERIFY(!f.window.isVisible());
    }
};

QTEST_MAIN(TestDiscsWindow)
#include "tst_DiscsWindow.moc"
