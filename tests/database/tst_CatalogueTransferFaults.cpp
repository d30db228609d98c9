// SPDX-License-Identifier: GPL-3.0-or-later
#include "CatalogueSamples.h"

#include <sys/stat.h>

#include "FlowFixture.h"
#include "TestFiles.h"

using namespace nubo;
using test::addFormats;
using test::FileSizeLimit;
using test::Flow;

class CatalogueTransferFaultsTest final : public QObject
{
    Q_OBJECT
private slots:
    // Escape during "&Guardar" over an existing file keeps it byte for byte and says so with
    // the cancel text; the current file and the list stay.
    void escapeOverAnExistingFileKeepsIt_data() { addFormats(); }
    void escapeOverAnExistingFileKeepsIt()
    {
        QFETCH(QString, name);
        Flow w;
        w.fill(40);
        const QString path = w.path(name);
        QCOMPARE(w.flow.SaveByExtension(path), database::TransferOutcome::Done);
        w.catalogue.setCurrentFile(path);
        const QByteArray before = test::fileBytes(path);
        w.fill(10);
        w.atTurn(20, [&w] { w.flow.transfer().raiseCancelFlag(); });
        w.flow.save();
        QCOMPARE(test::fileBytes(path), before);
        QCOMPARE(w.files(), QStringList{name});
        QVERIFY2(w.status().startsWith(QStringLiteral("CANCELADA...Se ha agregado ")),
                 qPrintable(w.status()));
        QVERIFY(w.status().endsWith(
            QStringLiteral(" archivos a la base de datos. No se ha guardado: el archivo %1 se ha "
                           "dejado como estaba.")
                .arg(path)));
        QCOMPARE(w.catalogue.currentFile(), path);
        QCOMPARE(w.catalogue.list().count(), 50);
    }

    // A damaged file keeps the rows read in the list, names the damage with its counts, and
    // does not become the current file.
    void damagedFileIsReportedAndNotCurrent_data() { addFormats(); }
    void damagedFileIsReportedAndNotCurrent()
    {
        QFETCH(QString, name);
        Flow w;
        const QString path = w.path(name);
        QVERIFY(
            database::saveCatalogue(path, {}, database::rowsOf(database::test::sampleRows(3000)))
                .ok);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.seek(file.size() * 3 / 5 / 4096 * 4096));
        QCOMPARE(file.write(QByteArray(4096, '\0')), 4096);
        file.close();
        w.flow.openFile(path);
        const int kept = w.catalogue.list().count();
        QVERIFY(kept > 0 && kept < 3000);
        QVERIFY2(
            w.status().startsWith(
                QStringLiteral("El archivo %1 está dañado: se leyeron %2 "
                               "filas de 3.000 (")
                    .arg(path,
                         QString::number(kept / 1000) + '.' +
                             QString::number(kept % 1000).rightJustified(3, QLatin1Char('0')))),
            qPrintable(w.status()));
        QCOMPARE(w.dialogs.asked.last().title, QStringLiteral("Error al leer archivo"));
        QCOMPARE(w.catalogue.currentFile(), QString());
    }

    // A save that fails for want of room names that cause after "Causa: ".
    void fullDiskNamesItsCause_data() { addFormats(); }
    void fullDiskNamesItsCause()
    {
        QFETCH(QString, name);
        Flow w;
        w.fill(3000);
        const QString path = w.path(name);
        test::writeFile(path, "old bytes");
        {
            const FileSizeLimit limit(20000);
            w.flow.SaveByExtension(path);
        }
        QVERIFY2(w.status().contains(QStringLiteral("\nCausa: No se puede escribir en el archivo")),
                 qPrintable(w.status()));
        QVERIFY(w.status().endsWith(
            QStringLiteral("El archivo supera el tamaño que admite el disco.")));
        QCOMPARE(test::fileBytes(path), QByteArray("old bytes"));
        QCOMPARE(w.files(), QStringList{name});
    }

    // A FIFO or a device named as a catalogue neither hangs the window nor costs its rows.
    void specialSourcesKeepTheList_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("fifo");
        QTest::newRow("fifo .mdb") << "tubo.mdb" << true;
        QTest::newRow("/dev/zero .xls") << "cero.xls" << false;
    }
    void specialSourcesKeepTheList()
    {
        QFETCH(QString, name);
        QFETCH(bool, fifo);
        Flow w;
        w.fill(5);
        const QString path = w.path(name);
        if (fifo)
            QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0644), 0);
        else
            QVERIFY(QFile::link(QStringLiteral("/dev/zero"), path));
        QCOMPARE(w.flow.openFile(path), database::TransferOutcome::Failed);
        QCOMPARE(w.catalogue.list().count(), 5);
        QVERIFY2(w.status().endsWith(QStringLiteral("no es un archivo normal (es una carpeta, una "
                                                    "tubería o un dispositivo): no se lee.")),
                 qPrintable(w.status()));
        QCOMPARE(w.catalogue.currentFile(), QString());
    }
};

QTEST_GUILESS_MAIN(CatalogueTransferFaultsTest)
#include "tst_CatalogueTransferFaults.moc"
