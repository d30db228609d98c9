// SPDX-License-Identifier: GPL-3.0-or-later
// What the list window's saves and opens do to the user's files when a load stops short or
// meets a damaged or foreign file, when catalogues are merged, when a typed name gets its
// extension and when a workbook holds more than a catalogue.
#include "CatalogueSamples.h"
#include "FlowFixture.h"
#include "Oracle.h"
#include "TestFiles.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QTest>

using namespace nubo;
using database::TransferOutcome;
using test::addFormats;
using test::Flow;
using test::storedNames;

namespace {

constexpr int kRows = 2000;

// A catalogue of n rows named prefix0 .. written through the flow; the list is left empty.
QString writeCatalogue(Flow& f, const QString& name, int n)
{
    f.fill(n);
    const QString path = f.path(name);
    if (f.flow.SaveByExtension(path) != TransferOutcome::Done)
        qFatal("cannot write %s", qPrintable(path));
    f.catalogue.list().clear();
    return path;
}

// "&Guardar" with no current file asks for a name; the dialog is left, so nothing is written.
void saveAsksForAName(Flow& f)
{
    const qsizetype asked = f.dialogs.asked.size();
    f.flow.save();
    QCOMPARE(f.dialogs.asked.size(), asked + 1);
    QCOMPARE(f.dialogs.asked.last().kind, QStringLiteral("save"));
}

} // namespace

class CatalogueFileFlowSafetyTest final : public QObject
{
    Q_OBJECT
private slots:
    // Escape at twenty points of a load, from the first row to the last: the rows read stay,
    // the file never becomes current (a list that held another file's rows loses its current
    // file too, unless nothing came in), and "&Guardar" asks for a name.
    void escapeDuringALoadNeverMakesTheFileCurrent_data() { addFormats(); }
    void escapeDuringALoadNeverMakesTheFileCurrent()
    {
        QFETCH(QString, name);
        Flow f;
        const QString path = writeCatalogue(f, name, kRows);
        const QString other = writeCatalogue(f, QStringLiteral("otra.xls"), 3);
        const QByteArray bytes = test::fileBytes(path);
        for (int point = 0; point < 20; ++point) {
            const int turn = point == 19 ? kRows : 1 + point * (kRows / 19);
            const bool fromOther = point % 2 == 1;
            f.catalogue.list().clear();
            f.catalogue.setCurrentFile(QString());
            if (fromOther)
                QCOMPARE(f.flow.openFile(other), TransferOutcome::Done);
            QCOMPARE(f.catalogue.currentFile(), fromOther ? other : QString());
            f.atTurn(turn, [&f] { f.flow.transfer().raiseCancelFlag(); });
            QCOMPARE(f.flow.openFile(path), TransferOutcome::Cancelled);
            const int before = fromOther ? 3 : 0;
            QCOMPARE(f.catalogue.list().count(), before + turn - 1);
            QCOMPARE(f.catalogue.currentFile(), fromOther && turn == 1 ? other : QString());
            QCOMPARE(f.status(), QStringLiteral("CANCELADA...Agregados %1 archivos desde %2")
                                     .arg(turn - 1)
                                     .arg(path));
            if (f.catalogue.currentFile().isEmpty())
                saveAsksForAName(f);
            QCOMPARE(test::fileBytes(path), bytes);
        }
    }

    // A block of zeros in a file: the rows read stay in the list, the damage is named with its
    // counts, and the file does not become current.
    void damagedFileIsReportedAndNotCurrent_data() { addFormats(); }
    void damagedFileIsReportedAndNotCurrent()
    {
        QFETCH(QString, name);
        Flow f;
        const QString path = f.path(name);
        QVERIFY(database::test::writeZeroedBlockCatalogue(path, 3000));
        f.flow.openFile(path);
        const int kept = f.catalogue.list().count();
        QVERIFY(kept > 0 && kept < 3000);
        const QString count = QString::number(kept / 1000) + '.' +
                              QString::number(kept % 1000).rightJustified(3, QLatin1Char('0'));
        QVERIFY2(f.status().startsWith(QStringLiteral("El archivo %1 está dañado: se leyeron %2 "
                                                      "filas de 3.000 (")
                                           .arg(path, count)),
                 qPrintable(f.status()));
        QCOMPARE(f.dialogs.asked.last().title, QStringLiteral("Error al leer archivo"));
        QCOMPARE(f.catalogue.currentFile(), QString());
    }

    // A catalogue opened into a list that holds another catalogue's rows, or several at once,
    // leaves no current file: emptying asks without a name and "&Guardar" asks for one. Escape
    // in the second of three files keeps the rows read and never reads the third. Search rows,
    // which hold no catalogue's rows, let the opened file become current.
    void mergedOpensLeaveNoCurrentFile_data()
    {
        QTest::addColumn<QString>("how");
        QTest::addColumn<int>("rows");
        QTest::addColumn<bool>("current");
        QTest::newRow("two files at once") << "at once" << 10 << false;
        QTest::newRow("Escape in the second of three") << "escape" << 4 + 2 << false;
        QTest::newRow("open into a loaded list") << "loaded" << 10 << false;
        QTest::newRow("open into a saved list") << "saved" << 8 << false;
        QTest::newRow("the same file twice") << "twice" << 8 << false;
        QTest::newRow("search rows, then a catalogue") << "search" << 8 << true;
    }
    void mergedOpensLeaveNoCurrentFile()
    {
        QFETCH(QString, how);
        QFETCH(bool, current);
        Flow f;
        const QString a = writeCatalogue(f, QStringLiteral("a.xls"), 4);
        const QString b = writeCatalogue(f, QStringLiteral("b.mdb"), 6);
        const QString c = writeCatalogue(f, QStringLiteral("c.xls"), 5);
        const QByteArray bytesA = test::fileBytes(a);
        const QByteArray bytesB = test::fileBytes(b);
        if (how == QLatin1String("at once") || how == QLatin1String("escape")) {
            const bool escape = how == QLatin1String("escape");
            f.dialogs.fileAnswers.enqueue(a + '\n' + b + (escape ? '\n' + c : QString()));
            if (escape)
                f.atTurn(4 + 3, [&f] { f.flow.transfer().raiseCancelFlag(); });
            f.flow.loadFromFile();
        } else {
            if (how == QLatin1String("loaded") || how == QLatin1String("twice"))
                f.flow.openFile(a);
            if (how == QLatin1String("saved") || how == QLatin1String("search"))
                f.fill(2);
            if (how == QLatin1String("saved")) {
                f.dialogs.fileAnswers.enqueue(f.path(QStringLiteral("s.mdb")));
                f.flow.saveAs();
                QCOMPARE(f.catalogue.currentFile(), f.path(QStringLiteral("s.mdb")));
            }
            f.flow.openFile(how == QLatin1String("twice") ? a : b);
        }
        QTEST(int(f.catalogue.list().count()), "rows");
        QCOMPARE(f.catalogue.currentFile(), current ? b : QString());
        if (current)
            return;
        f.dialogs.messageAnswers.enqueue(platform::MessageAnswer::Cancel);
        QCOMPARE(f.catalogue.EmptyList(), catalogue::EmptyOutcome::Kept);
        QCOMPARE(f.dialogs.asked.last().text, QStringLiteral("¿ Desea guardar la lista ?"));
        saveAsksForAName(f);
        QCOMPARE(test::fileBytes(a), bytesA);
        QCOMPARE(test::fileBytes(b), bytesB);
    }

    // A name typed without its extension whose ".mdb" file exists is asked about for that file,
    // from every save dialog: "No" keeps the file, the list and the current file.
    void typedNameAsksBeforeReplacingTheRealTarget_data()
    {
        QTest::addColumn<QString>("via");
        QTest::addColumn<bool>("replace");
        for (const char* via : {"Guardar Como", "Guardar", "emptying"}) {
            QTest::addRow("%s, No", via) << QString(via) << false;
            QTest::addRow("%s, Si", via) << QString(via) << true;
        }
    }
    void typedNameAsksBeforeReplacingTheRealTarget()
    {
        QFETCH(QString, via);
        QFETCH(bool, replace);
        Flow f;
        const QString path = writeCatalogue(f, QStringLiteral("coleccion.mdb"), 60);
        const QByteArray bytes = test::fileBytes(path);
        f.fill(10);
        f.dialogs.fileAnswers.enqueue(f.path(QStringLiteral("coleccion")));
        if (via == QLatin1String("emptying"))
            f.dialogs.messageAnswers.enqueue(platform::MessageAnswer::Yes);
        f.dialogs.messageAnswers.enqueue(replace ? platform::MessageAnswer::Yes
                                                 : platform::MessageAnswer::No);
        if (via == QLatin1String("emptying"))
            f.catalogue.EmptyList();
        else if (via == QLatin1String("Guardar"))
            f.flow.save();
        else
            f.flow.saveAs();
        const auto question =
            std::find_if(f.dialogs.asked.cbegin(), f.dialogs.asked.cend(),
                         [](const auto& asked) { return asked.text.contains("ya existe"); });
        QVERIFY(question != f.dialogs.asked.cend());
        QCOMPARE(question->text, "El archivo " + path + " ya existe.\n¿Desea reemplazarlo?");
        QCOMPARE(question->buttons, platform::MessageButtons::YesNo);
        if (replace) {
            QCOMPARE(storedNames(path).size(), 10);
            return;
        }
        QCOMPARE(test::fileBytes(path), bytes);
        QCOMPARE(f.catalogue.list().count(), 10);
        QCOMPARE(f.catalogue.currentFile(), QString());
        if (via != QLatin1String("emptying"))
            QCOMPARE(f.status(), QStringLiteral("La lista no se guardará"));
    }

    // Before a workbook holding sheets or columns a save does not write is replaced, the user
    // is asked, with each of them named; "No" keeps the file byte for byte. Empty sheets and
    // our own workbooks ask nothing.
    void extraSheetsAndColumnsAreAskedAbout_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("named");
        const QString fixtures = qEnvironmentVariable("NUBO_FIXTURES") + '/';
        QTest::newRow("columns E to K") << fixtures + "test2.xls"
                                        << "(columna 5: e; columna 6: f; columna 7: g; columna "
                                           "8: h; columna 9: I; columna 10: j; columna 11: k)";
        QTest::newRow("a second sheet") << fixtures + "SampleSS.xls"
                                        << "(hoja Sheet Number 2)";
        QTest::newRow("empty sheets") << fixtures + "blankworkbook.xls" << QString();
        QTest::newRow("our own workbook") << QString() << QString();
    }
    void extraSheetsAndColumnsAreAskedAbout()
    {
        QFETCH(QString, source);
        QFETCH(QString, named);
        Flow f;
        const QString path = f.path(QStringLiteral("libro.xls"));
        if (source.isEmpty())
            writeCatalogue(f, QStringLiteral("libro.xls"), 5);
        else
            QVERIFY(QFile::copy(source, path));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
        const QByteArray bytes = test::fileBytes(path);
        f.fill(3);
        f.catalogue.setCurrentFile(path);
        f.dialogs.messageAnswers.enqueue(platform::MessageAnswer::No);
        const TransferOutcome outcome = f.flow.SaveByExtension(path);
        if (named.isEmpty()) {
            QCOMPARE(outcome, TransferOutcome::Done);
            QVERIFY(f.dialogs.asked.isEmpty());
            return;
        }
        QCOMPARE(outcome, TransferOutcome::Failed);
        QCOMPARE(f.dialogs.asked.size(), 1);
        QCOMPARE(f.dialogs.asked.last().text,
                 "El libro " + path + " contiene hojas o columnas que Nubo no guarda " + named +
                     ". Si lo guarda, se perderán.\n\n¿Desea continuar?");
        QCOMPARE(f.dialogs.asked.last().buttons, platform::MessageButtons::YesNo);
        QCOMPARE(test::fileBytes(path), bytes);
        QCOMPARE(f.status(), QStringLiteral("La lista no se guardará"));
        // Emptying with "Sí" and then "No" keeps the rows as well as the file.
        f.dialogs.messageAnswers.enqueue(platform::MessageAnswer::Yes);
        f.dialogs.messageAnswers.enqueue(platform::MessageAnswer::No);
        QCOMPARE(f.catalogue.EmptyList(), catalogue::EmptyOutcome::Stopped);
        QCOMPARE(f.catalogue.list().count(), 3);
        QCOMPARE(test::fileBytes(path), bytes);
        // "Sí" replaces it with the list.
        QCOMPARE(f.flow.SaveByExtension(path), TransferOutcome::Done);
        QCOMPARE(storedNames(path), (QStringList{"r0", "r1", "r2"}));
    }

    // A file the readers refuse, or one that is no catalogue at all, never becomes the current
    // file: "&Guardar" afterwards writes the old current file and leaves the other untouched.
    void refusedFilesDoNotBecomeCurrent_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("message");
        QTest::newRow("damaged workbook") << "viejo.xls"
                                          << "Version de Office Incompatible";
        QTest::newRow("damaged database") << "viejo.mdb"
                                          << "Imposible Acceder a ";
        QTest::newRow("text file") << "notas.txt"
                                   << "no es un archivo .xls ni .mdb";
    }
    void refusedFilesDoNotBecomeCurrent()
    {
        QFETCH(QString, name);
        QFETCH(QString, message);
        Flow f;
        f.fill(2);
        const QString good = f.path(QStringLiteral("buena.xls"));
        QCOMPARE(f.flow.SaveByExtension(good), database::TransferOutcome::Done);
        f.catalogue.setCurrentFile(good);
        const QString other = test::writtenFile(f.path(name), "no soy una lista");
        f.flow.openFile(other);
        QVERIFY2(f.status().contains(message), qPrintable(f.status()));
        QCOMPARE(f.catalogue.currentFile(), good);
        QCOMPARE(f.names(), (QStringList{"r0", "r1"}));
        if (name.endsWith(QLatin1String("txt"))) {
            QCOMPARE(f.dialogs.asked.last().title, QStringLiteral("Error al leer archivo"));
            QVERIFY(f.dialogs.asked.last().text.contains(QLatin1String("(.xls)")));
        }
        f.flow.save();
        QCOMPARE(test::fileBytes(other), QByteArray("no soy una lista"));
        QCOMPARE(storedNames(good), (QStringList{"r0", "r1"}));
    }

    // Every fixture and a file of ours, truncated and bit-flipped: rows or the failure texts.
    void hostileFilesGiveOnlyTheStatusTexts()
    {
        Flow f;
        f.fill(40);
        QStringList sources{f.path(QStringLiteral("own.xls")), f.path(QStringLiteral("own.mdb"))};
        for (const QString& own : sources)
            f.flow.SaveByExtension(own);
        // Outside CI, a missing fixtures folder leaves our own files to damage.
        const QString fixturesDir = nubo::test::fixturesDir();
        QVERIFY2(!fixturesDir.isEmpty() || !nubo::test::underCi(),
                 "the fixtures folder (NUBO_FIXTURES) is missing, and CI needs it");
        QDirIterator fixtures(fixturesDir, {"*.xls", "*.mdb"});
        while (!fixturesDir.isEmpty() && fixtures.hasNext())
            sources.append(fixtures.next());
        const QRegularExpression allowed(
            QStringLiteral("^(Se han agregado \\d+ archivos desde |Imposible Acceder a |No se "
                           "puede acceder al archivo .*\\. Version de Office Incompatible(\n"
                           "Causa: .*)?$|El archivo .* está dañado: se leyeron [\\d.]+ filas)"));
        int round = 0;
        for (const QString& source : std::as_const(sources)) {
            const QByteArray bytes = test::fileBytes(source);
            for (const double cut : {0.0, 0.1, 0.5, 0.9, 1.0}) {
                for (const bool flip : {false, true}) {
                    QByteArray damaged = bytes.left(qsizetype(bytes.size() * cut));
                    if (flip)
                        for (qsizetype i = 7; i < damaged.size(); i += 97)
                            damaged[i] = char(damaged[i] ^ (1 << (i % 8)));
                    const QString path = test::writtenFile(
                        f.path(QStringLiteral("h%1.").arg(++round) + source.right(3)), damaged);
                    f.catalogue.list().clear();
                    f.flow.LoadByExtension(path);
                    QVERIFY2(allowed.match(f.status()).hasMatch(), qPrintable(f.status()));
                    const bool damagedRead = f.status().contains(QStringLiteral("dañado"));
                    if (!f.status().startsWith(QLatin1String("Se han agregado")) && !damagedRead)
                        QVERIFY(f.catalogue.list().isEmpty()); // a failed load adds nothing
                    QCOMPARE(f.view.begun, f.view.ended);
                }
            }
        }
    }
};

QTEST_GUILESS_MAIN(CatalogueFileFlowSafetyTest)
#include "tst_CatalogueFileFlowSafety.moc"
