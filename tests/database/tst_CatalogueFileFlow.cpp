// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/CatalogueFiles.h"

#include <QTest>
#include <QThread>

#include <atomic>
#include <optional>
#include <unistd.h>

#include "BiffFixtures.h"
#include "FlowFixture.h"
#include "TestFiles.h"

using namespace nubo;
using test::addFormats;
using test::FileSizeLimit;
using test::Flow;
using test::storedNames;

class TestCatalogueFileFlow final : public QObject
{
    Q_OBJECT
private slots:
    void roundTripKeepsOrderAndCounts_data() { addFormats(); }
    void roundTripKeepsOrderAndCounts()
    {
        QFETCH(QString, name);
        Flow f;
        const QString path = f.path(name);
        f.fill(3);
        f.catalogue.list().insertAtTop({{}, {}, {}, {}, {}}); // no name: a workbook skips it
        f.flow.SaveByExtension(path);
        QCOMPARE(f.status(), QStringLiteral("Agregados 4 archivos a la base de datos."));
        QCOMPARE(f.view.maximum, 4);
        f.catalogue.list().removeAt(0);
        f.flow.openFile(path); // appends below the rows already there
        QCOMPARE(f.catalogue.currentFile(), path);
        const bool workbook = name.endsWith(QLatin1String("xls"));
        // A database loads its last record first.
        const QStringList expected = workbook ? QStringList{"r0", "r1", "r2", "r0", "r1", "r2"}
                                              : QStringList{"r0", "r1", "r2", "r2", "r1", "r0", ""};
        QCOMPARE(f.names(), expected);
        QCOMPARE(f.catalogue.list().row(3).unidad, QStringLiteral("NN"));
        const QString added = QString::number(workbook ? 3 : 4);
        QCOMPARE(f.statuses.last(), "Se han agregado " + added + " archivos desde " + path);
        QCOMPARE(f.catalogue.countLine(),
                 QStringLiteral("La lista contiene %1 archivos actualmente").arg(expected.size()));
        QCOMPARE(f.view.begun, 2);
        QCOMPARE(f.view.ended, 2);
        if (workbook) {
            QCOMPARE(f.sheet.sheetName, QStringLiteral("Colección"));
            QVERIFY(f.statuses.contains(QStringLiteral("Comprobando formato Colección...")));
        }
    }

    // A save made while rows' details are still being read takes the rows once every one is
    // read.
    void aSaveWaitsForTheRowsDetails_data() { addFormats(); }
    void aSaveWaitsForTheRowsDetails()
    {
        QFETCH(QString, name);
        Flow f;
        f.drives.add(QStringLiteral("/"), platform::DriveType::Fixed);
        std::atomic<int> read = 0;
        f.catalogue.detailReader().setReadFunction([&read](const QString&) {
            QThread::msleep(5);
            ++read;
            return core::FileDetails();
        });
        for (int i = 0; i < 8; ++i) {
            QString file = f.path(QStringLiteral("t%1.mp3").arg(i));
            QVERIFY(QFile(file).open(QIODevice::WriteOnly));
            f.catalogue.AddFileToList(file);
        }
        f.flow.SaveByExtension(f.path(name));
        QCOMPARE(read.load(), 8);
        QCOMPARE(f.catalogue.detailReader().pending(), 0);
        QCOMPARE(f.status(), QStringLiteral("Agregados 8 archivos a la base de datos."));
    }

    // Workbook: the cancel seen before row k + 1 keeps k rows. Database: the cancel seen at row
    // k keeps k - 1 rows and one empty record, and reports k.
    void cancelKeepsThePartialFile_data() { addFormats(); }
    void cancelKeepsThePartialFile()
    {
        QFETCH(QString, name);
        Flow f;
        f.fill(6);
        f.atTurn(4, [&f] { f.flow.transfer().raiseCancelFlag(); });
        const QString path = f.path(name);
        f.flow.SaveByExtension(path);
        const bool workbook = name.endsWith(QLatin1String("xls"));
        QCOMPARE(f.status(), QStringLiteral("CANCELADA...Se ha agregado %1 archivos a la base de "
                                            "datos.")
                                 .arg(workbook ? 3 : 4));
        const QStringList kept =
            workbook ? QStringList{"r0", "r1", "r2"} : QStringList{"r0", "r1", "r2", ""};
        QCOMPARE(storedNames(path), kept);
        QCOMPARE(f.view.ended, 1);
    }

    void saveDialogChoosesTheFormat_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("saved");
        QTest::newRow("no extension") << "catalogo" << QStringLiteral("catalogo.mdb");
        QTest::newRow("upper-case workbook") << "lista.XLS" << QStringLiteral("lista.XLS");
        QTest::newRow("other extension") << "lista.txt" << QStringLiteral("lista.txt.mdb");
    }
    void saveDialogChoosesTheFormat()
    {
        QFETCH(QString, typed);
        QFETCH(QString, saved);
        Flow f;
        f.fill(2);
        f.dialogs.fileAnswers.enqueue(f.path(typed));
        f.flow.save();
        QCOMPARE(f.dialogs.asked.last().title, QStringLiteral("Guardar como..."));
        QCOMPARE(f.dialogs.fileStartPaths.last(), QStringLiteral("c:"));
        QCOMPARE(f.catalogue.currentFile(), f.path(saved));
        QCOMPARE(storedNames(f.path(saved)), (QStringList{"r0", "r1"}));
        // The second "&Guardar" writes again without asking.
        f.fill(1);
        f.flow.save();
        QCOMPARE(f.dialogs.asked.size(), 1);
        QCOMPARE(storedNames(f.path(saved)).size(), 3);
        f.flow.saveAs(); // starts at the current file; cancelled
        QCOMPARE(f.dialogs.fileStartPaths.last(), f.path(saved));
    }

    // The style is applied only with CONFIGEXCEL on.
    void sheetStyleFollowsTheOption()
    {
        Flow f;
        f.fill(2);
        const auto saved = [&f](bool on, quint32 fill) {
            f.options.setValue(core::Option::ConfigExcel, on ? 1 : 0);
            f.sheet.style.fillColor = fill;
            const QString path = f.path(QStringLiteral("s.xls"));
            f.flow.SaveByExtension(path);
            return test::fileBytes(path);
        };
        const QByteArray plain = saved(false, 0xFFFFFF);
        QCOMPARE(saved(false, 0x123456), plain);
        QVERIFY(saved(true, 0x123456) != plain);
    }

    // Cancelled dialogs change nothing. Emptying with no current file, "Sí", and the save
    // dialog left: the list stays and no message is shown; the plain save keeps its cancel text.
    void cancelledDialogsChangeNothing()
    {
        Flow f;
        f.fill(1);
        f.catalogue.ShowInfoMessage(QStringLiteral("antes"), 1000, 0);
        QCOMPARE(f.catalogue.EmptyList(), catalogue::EmptyOutcome::Stopped);
        QCOMPARE(f.dialogs.asked.last().kind, QStringLiteral("save"));
        QCOMPARE(f.dialogs.asked.last().title, QStringLiteral("Guardar como"));
        QCOMPARE(f.catalogue.info().text(), QStringLiteral("antes"));
        f.flow.save();
        QCOMPARE(f.status(), QStringLiteral("La lista no se guardará"));
        const QString current = f.path(QStringLiteral("x.mdb"));
        f.catalogue.setCurrentFile(current);
        f.statuses.clear();
        f.flow.saveAs();
        QCOMPARE(f.status(), QStringLiteral("La lista no se guardará"));
        QCOMPARE(f.dialogs.fileStartPaths.last(), current);
        f.flow.loadFromFile();
        QCOMPARE(f.status(), QStringLiteral("No se abrira ninguna base de datos"));
        QCOMPARE(f.dialogs.asked.last().kind, QStringLiteral("open"));
        QCOMPARE(f.dialogs.asked.last().title,
                 QStringLiteral("Seleccione la base de datos a abrir"));
        QCOMPARE(f.catalogue.currentFile(), current);
        QCOMPARE(f.names(), QStringList{"r0"});
        QVERIFY(!QFile::exists(current));
    }

    // Each fault strikes a save of 3,000 rows over an old file. A failed save keeps the old
    // file byte for byte (or nothing, where its folder went), leaves no temporary file, keeps
    // the list and names its cause; a list cleared halfway cannot reach the file (emptying
    // during a save is refused: tst_ListWindowFileView).
    void faultsDuringASaveLoseNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("fault");
        for (const char* fault : {"file-size limit", "folder removed", "folder removed mid-save",
                                  "read-only file", "read-only folder", "cleared under the save"})
            for (const char* name : {"v.xls", "v.mdb"})
                QTest::addRow("%s, %s", fault, name) << QString(name) << QString(fault);
    }
    void faultsDuringASaveLoseNothing()
    {
        QFETCH(QString, name);
        QFETCH(QString, fault);
        // The superuser writes through permission bits: only the file's own write bit, which
        // the save checks itself, can stand for read-only there.
        if (fault == QLatin1String("read-only folder") && geteuid() == 0)
            QSKIP("permission bits do not stop the superuser");
        Flow f;
        f.fill(3000); // either file is well over the limit's 64 KiB
        const QString folder = f.path(QStringLiteral("discos"));
        const QString path = folder + QLatin1Char('/') + name;
        test::writeFile(path, "old bytes");
        const QStringList rows = f.names();
        if (fault == QLatin1String("folder removed"))
            QDir(folder).removeRecursively();
        if (fault == QLatin1String("read-only file"))
            QFile::setPermissions(path, QFile::ReadOwner);
        if (fault == QLatin1String("read-only folder"))
            QFile::setPermissions(folder, QFile::ReadOwner | QFile::ExeOwner);
        if (fault == QLatin1String("folder removed mid-save"))
            f.atTurn(2, [&] { QDir(folder).removeRecursively(); });
        if (fault == QLatin1String("cleared under the save"))
            f.atTurn(2, [&] { f.catalogue.list().clear(); });
        database::TransferOutcome outcome;
        {
            std::optional<FileSizeLimit> full;
            if (fault == QLatin1String("file-size limit"))
                full.emplace(64 * 1024);
            outcome = f.flow.SaveByExtension(path);
        }
        QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QCOMPARE(f.view.begun, f.view.ended);
        if (fault == QLatin1String("cleared under the save")) {
            // The file gets the rows as the save found them.
            QCOMPARE(outcome, database::TransferOutcome::Done);
            QCOMPARE(storedNames(path), rows);
            QCOMPARE(f.files(folder), QStringList{name});
            return;
        }
        QCOMPARE(outcome, database::TransferOutcome::Failed);
        QVERIFY2(f.status().startsWith(f.failure(path)), qPrintable(f.status()));
        QCOMPARE(f.status().count(QLatin1Char('\n')), 1); // the cause is one line
        if (fault == QLatin1String("file-size limit"))
            QVERIFY(f.status().contains(QStringLiteral("Causa: No se puede escribir en")) &&
                    f.status().endsWith(
                        QStringLiteral("El archivo supera el tamaño que admite el disco.")));
        QCOMPARE(f.names(), rows);
        if (fault.startsWith(QLatin1String("folder removed"))) {
            QVERIFY(!QFileInfo::exists(folder)); // nothing made it again
        } else {
            QCOMPARE(test::fileBytes(path), QByteArray("old bytes"));
            QCOMPARE(f.files(folder), QStringList{name}); // no temporary file left
        }
    }

    // Escape, or the program's end (F12, the exit button, the tray), stops a save over an
    // existing file at its next row: the file stays byte for byte and no temporary file is
    // left. Escape says so and keeps the list and the current file.
    void stoppedSaveKeepsThePreviousFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("exit");
        for (const char* name : {"v.xls", "v.mdb"}) {
            QTest::addRow("Escape, %s", name) << QString(name) << false;
            QTest::addRow("exit, %s", name) << QString(name) << true;
        }
    }
    void stoppedSaveKeepsThePreviousFile()
    {
        QFETCH(QString, name);
        QFETCH(bool, exit);
        Flow f;
        f.fill(40);
        const QString path = f.path(name);
        QCOMPARE(f.flow.SaveByExtension(path), database::TransferOutcome::Done);
        f.catalogue.setCurrentFile(path);
        const QByteArray before = test::fileBytes(path);
        f.fill(10);
        f.atTurn(20, [&f, exit] {
            if (exit)
                f.catalogue.list().clear(); // F12 empties the list without a question
            exit ? f.flow.transfer().stopForExit() : f.flow.transfer().raiseCancelFlag();
        });
        f.statuses.clear();
        f.flow.save();
        QCOMPARE(f.view.turns, 20);
        QCOMPARE(test::fileBytes(path), before);
        QCOMPARE(f.files(), QStringList{name});
        if (exit) {
            QVERIFY(!f.status().contains(QLatin1String("archivos a la base de datos")));
            return;
        }
        QVERIFY2(f.status().startsWith(QStringLiteral("CANCELADA...Se ha agregado ")) &&
                     f.status().endsWith(" archivos a la base de datos. No se ha guardado: el "
                                         "archivo " +
                                         path + " se ha dejado como estaba."),
                 qPrintable(f.status()));
        QCOMPARE(f.catalogue.currentFile(), path);
        QCOMPARE(f.catalogue.list().count(), 50);
    }

    // "Sí" to "¿ Desea guardar la lista ...?" empties only after a save that wrote every row;
    // otherwise the rows, the current file and the save's failure text stay.
    void emptyingKeepsTheRowsWhenTheSaveFails_data()
    {
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("chosen");
        QTest::addColumn<QString>("sheetName");
        const char* const rows[][4] = {{"current file, folder gone", "no/v.mdb", "", "Hoja"},
                                       {"save as, folder gone", "", "no/v.xls", "Hoja"},
                                       {"invalid sheet name", "v.xls", "", "a/b"}};
        for (const auto& r : rows)
            QTest::newRow(r[0]) << QString(r[1]) << QString(r[2]) << QString(r[3]);
    }
    void emptyingKeepsTheRowsWhenTheSaveFails()
    {
        QFETCH(QString, current);
        QFETCH(QString, chosen);
        Flow f;
        QFETCH(QString, sheetName);
        f.sheet.sheetName = sheetName;
        f.fill(3);
        if (!current.isEmpty())
            f.catalogue.setCurrentFile(f.path(current));
        if (!chosen.isEmpty())
            f.dialogs.fileAnswers.enqueue(f.path(chosen));
        QCOMPARE(f.catalogue.EmptyList(), catalogue::EmptyOutcome::Stopped);
        QCOMPARE(f.catalogue.list().count(), 3);
        QCOMPARE(f.catalogue.currentFile(), current.isEmpty() ? QString() : f.path(current));
        const QString target = f.path(current.isEmpty() ? chosen : current);
        QVERIFY2(f.status().startsWith("No se puede acceder al archivo " + target),
                 qPrintable(f.status()));
        QVERIFY(f.status().contains(QLatin1String("\nCausa: ")));
        QVERIFY(!QFileInfo::exists(target));
    }

    // A failed save names its real cause beside the program's own texts, and the current file
    // does not become the name that was never written.
    void saveFailureNamesItsCause()
    {
        Flow f;
        f.fill(65535);
        const QString path = f.path(QStringLiteral("grande.xls"));
        test::writeFile(path, "old bytes");
        f.dialogs.fileAnswers.enqueue(path);
        f.flow.saveAs();
        const QString cause =
            QStringLiteral("\nCausa: La hoja admite 65536 filas: 65537 filas no caben en ella.");
        QCOMPARE(f.dialogs.asked.last().title, QStringLiteral("Error al guardar archivo"));
        QCOMPARE(f.dialogs.asked.last().text,
                 "Microsoft Office 97 no se encuentra instalado,o su instalación no es correcta o "
                 "la versión  es anterior al la 97" +
                     cause);
        QCOMPARE(f.status(), "No se puede acceder al archivo " + path +
                                 "Version de Office Incompatible" + cause);
        QVERIFY(test::fileBytes(f.log.path())
                    .contains("Office 97 incorrecto, mal instalado o sin instalar.%" +
                              path.toUtf8() + "%Write"));
        QCOMPARE(test::fileBytes(path), QByteArray("old bytes"));
        QCOMPARE(f.catalogue.currentFile(), QString());
    }

    // A text longer than a database field holds is named, row and field, before anything is
    // written; the old file stays and a workbook takes the same list whole.
    void longTextForADatabaseIsNamedBeforeWriting()
    {
        Flow f;
        f.fill(3);
        const QString deep = "/" + QString(300, QLatin1Char('a')) + "/";
        f.catalogue.list().insertAtTop({"largo", deep, "g", "MP3", "C:"});
        f.catalogue.list().insertAtTop({"r", "/d/", "g", "MP3", "C:"});
        const QString path = f.path(QStringLiteral("viejo.mdb"));
        test::writeFile(path, "old bytes");
        f.catalogue.setCurrentFile(path);
        QCOMPARE(f.catalogue.EmptyList(), catalogue::EmptyOutcome::Stopped);
        QCOMPARE(f.dialogs.asked.last().title, QStringLiteral("Error al guardar archivo"));
        const QString box = f.dialogs.asked.last().text;
        for (const char* word :
             {"La fila 2 ", " DIRECCION ", " 302 caracteres", "(.mdb)", "255", "(.xls)"})
            QVERIFY2(box.contains(QLatin1String(word)), word);
        QCOMPARE(f.status(), "No se ha guardado " + path +
                                 ": la fila 2 tiene en DIRECCION más de 255 caracteres; guarde "
                                 "la lista como .xls");
        QCOMPARE(test::fileBytes(path), QByteArray("old bytes"));
        QCOMPARE(f.files(), QStringList{"viejo.mdb"});
        QCOMPARE(f.catalogue.list().count(), 5);
        const QString workbook = f.path(QStringLiteral("nuevo.xls"));
        QCOMPARE(f.flow.SaveByExtension(workbook), database::TransferOutcome::Done);
        QCOMPARE(database::loadCatalogue(workbook)->rows.at(1).direccion, deep);
    }

    // A workbook whose details were typed over loads its rows and its disc records; what could
    // not be read is said once the usual status line is shown.
    void skippedValuesAreSaidAfterTheLoad()
    {
        Flow f;
        const QString path = f.path(QStringLiteral("editado.xls"));
        const QVariantList captions = {"NOMBRE", "DIRECCION", "ORIGEN", "FORMATO", "AÑO", "FECHA"};
        test::writeFile(
            path,
            database::test::compoundFile(
                {{"Workbook", database::test::biffSheets(
                                  {{"Hoja", {captions, {}, {"a", "/", "g", "MP3", "mil", "x"}}},
                                   {"Discos", {{"ORIGEN"}, {}, {"g"}, {"otro"}}}})}}));
        f.flow.openFile(path);
        QCOMPARE(f.names(), QStringList{"a"});
        QCOMPARE(f.catalogue.discs().count(), 2);
        QCOMPARE(f.status(), "Se han agregado 1 archivos desde " + path);
        QCOMPARE(f.dialogs.asked.size(), 1);
        QCOMPARE(f.dialogs.asked.last().title, QStringLiteral("Valores omitidos"));
        QCOMPARE(f.dialogs.asked.last().text,
                 "El archivo " + path +
                     " tiene 2 valores que no se pudieron leer y se dejaron vacíos (columnas "
                     "AÑO, FECHA).");
    }

    // A tag longer than a database field is cut and said, never a failed save; the discs and
    // every detail go out with the rows and come back with them.
    void longTagsAreCutAndSaid()
    {
        Flow f;
        f.fill(2);
        catalogue::CatalogueRow tagged{"largo", "/d/", "g", "MP3", "C:"};
        tagged.details.title = QString(10000, QLatin1Char('t'));
        tagged.details.size = qint64(5) << 30;
        f.catalogue.list().insertAtTop(tagged);
        core::DiscRecord disc;
        disc.origen = QStringLiteral("g");
        disc.ubicacion = QStringLiteral("Estante 3, caja azul");
        f.catalogue.discs().merge({disc});
        const QString path = f.path(QStringLiteral("etiquetas.mdb"));
        QCOMPARE(f.flow.SaveByExtension(path), database::TransferOutcome::Done);
        QCOMPARE(f.status(), QStringLiteral("Agregados 3 archivos a la base de datos. Se acortó 1 "
                                            "texto de etiqueta o de disco a 255 caracteres."));
        f.catalogue.list().clear();
        f.catalogue.discs().clear();
        f.flow.openFile(path);
        QCOMPARE(f.names(), (QStringList{"r1", "r0", "largo"}));
        QCOMPARE(f.catalogue.list().row(2).details.title, QString(255, QLatin1Char('t')));
        QCOMPARE(f.catalogue.discs().records(), QList{disc});
        QCOMPARE(f.status(), "Se han agregado 3 archivos desde " + path);
    }
};

QTEST_GUILESS_MAIN(TestCatalogueFileFlow)
#include "tst_CatalogueFileFlow.moc"
