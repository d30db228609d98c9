// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/cli/CoverCommand.h"
#include "print/ui/FormPrint1.h"

#include "catalogue/CatalogueList.h"
#include "catalogue/ListFilter.h"
#include "core/cli/Cli.h"
#include "database/CatalogueFiles.h"
#include "platform/FileDialogRules.h"
#include "platform/fakes/FakeDialogs.h"

#include "Oracle.h"
#include "TestFiles.h"

#include <QTemporaryDir>
#include <QTreeWidget>
#include <QtTest>

#include "WindowControl.h"

using nubo::test::control;

using namespace nubo::print;

namespace {

// pdftotext's reading of a PDF; its output is the text.
nubo::test::OracleRun pdftotext(const QString& path)
{
    return nubo::test::runOracle(QStringLiteral("pdftotext"), {path, QStringLiteral("-")});
}

int runCli(const QStringList& args, QString* err)
{
    QString out;
    QTextStream outStream(&out);
    QTextStream errStream(err);
    nubo::cli::CliIo io{outStream, errStream};
    const int status = nubo::cli::Cli({nubo::print::cli::coverCommand()}).run(args, io);
    errStream.flush();
    return status;
}

} // namespace

class FormPrint1Test final : public QObject
{
    Q_OBJECT
private slots:
    void loadingLaysTheListOutInColumns()
    {
        nubo::catalogue::CatalogueList list;
        for (int i = 10; i >= 1; --i) // the last inserted is the top row
            list.insertAtTop(
                {QStringLiteral("tema %1").arg(i), {}, QStringLiteral("Rock"), {}, {}});
        nubo::platform::FakeDialogs dialogs;
        dialogs.inputAnswers << QStringLiteral("4") << QStringLiteral("cero");
        FormPrint1 form(dialogs, list);
        QVERIFY(form.Form_Load());
        const auto* laid = control<QTreeWidget>(form, "ListView1");
        QCOMPARE(laid->columnCount(), 4);
        QCOMPARE(laid->topLevelItemCount(), 3); // R = 2, and two names more
        QCOMPARE(laid->topLevelItem(2)->text(1), QStringLiteral("tema 6"));

        QVERIFY(!form.Form_Load()); // a refused answer leaves the columns as they were
        QCOMPARE(dialogs.asked.last().kind, QStringLiteral("message"));
        QCOMPARE(laid->columnCount(), 4);

        // Without a printer: a name typed without an extension is saved as a .pdf, and the
        // dialog offers PDF files only.
        QTemporaryDir dir;
        dialogs.fileAnswers << dir.filePath(QStringLiteral("mi tapa"));
        form.savePdfAsked();
        QVERIFY(!nubo::platform::qtNameFilters(dialogs.asked.last().text).isEmpty());
        QVERIFY(
            nubo::test::fileBytes(dir.filePath(QStringLiteral("mi tapa.pdf"))).startsWith("%PDF"));
    }

    // While a find hides rows, the cover takes the rows shown ("Sí", the default) or the whole
    // list ("No"); cancelling asks nothing more.
    void aFindOffersTheRowsShown_data()
    {
        QTest::addColumn<nubo::platform::MessageAnswer>("answer");
        QTest::addColumn<int>("names");
        QTest::newRow("shown") << nubo::platform::MessageAnswer::Yes << 2;
        QTest::newRow("whole list") << nubo::platform::MessageAnswer::No << 10;
        QTest::newRow("cancel") << nubo::platform::MessageAnswer::Cancel << 0;
    }
    void aFindOffersTheRowsShown()
    {
        QFETCH(nubo::platform::MessageAnswer, answer);
        QFETCH(int, names);
        nubo::catalogue::CatalogueList list;
        for (int i = 10; i >= 1; --i)
            list.insertAtTop({QStringLiteral("tema %1").arg(i), {}, {}, {}, {}});
        list.flush();
        nubo::catalogue::ListFilter shown(list);
        shown.setFindText(QStringLiteral("tema 1"));
        QCOMPARE(shown.shownCount(), 2);
        nubo::platform::FakeDialogs dialogs;
        dialogs.messageAnswers << answer;
        dialogs.inputAnswers << QStringLiteral("2");
        FormPrint1 form(dialogs, list, &shown);
        QCOMPARE(form.Form_Load(), names > 0);
        QCOMPARE(dialogs.asked.first().buttons, nubo::platform::MessageButtons::YesNoCancel);
        QCOMPARE(dialogs.asked.size(), names > 0 ? 2 : 1);
        const auto* laid = control<QTreeWidget>(form, "ListView1");
        int laidOut = 0;
        for (int line = 0; line < laid->topLevelItemCount(); ++line)
            for (int c = 0; c < laid->columnCount(); ++c)
                laidOut += laid->topLevelItem(line)->text(c).isEmpty() ? 0 : 1;
        QCOMPARE(laidOut, names);
        if (answer == nubo::platform::MessageAnswer::Yes)
            QCOMPARE(laid->topLevelItem(0)->text(1), QStringLiteral("tema 10"));

        shown.setFindText({}); // nothing hidden: nothing asked
        dialogs.inputAnswers << QStringLiteral("2");
        const qsizetype asked = dialogs.asked.size();
        QVERIFY(form.Form_Load());
        QCOMPARE(dialogs.asked.size(), asked + 1);
    }

    void cliDrawsTheCoverOfAWorkbookAndATsv()
    {
        QTemporaryDir dir;
        const QString xls = dir.filePath(QStringLiteral("cat.xls"));
        const QList<nubo::database::CatalogueRecord> records{
            {QStringLiteral("Canción de cuna"), QStringLiteral("\\a\\"), QStringLiteral("Boleros"),
             QStringLiteral("MP3")},
            {QStringLiteral("Otra"), QStringLiteral("\\a\\"), QStringLiteral("Boleros"),
             QStringLiteral("MP3")}};
        QVERIFY(nubo::database::saveCatalogue(xls, {}, nubo::database::rowsOf(records)).ok);
        const QString tsv = nubo::test::writtenFile(
            dir.filePath(QStringLiteral("scan.tsv")),
            "Primera\t\\m\\\tTangos\tMP3\tD:\nSegunda\t\\m\\\tTangos\tMP3\tD:\n");
        for (const QString& input : {xls, tsv}) {
            const QString pdf = dir.filePath(QStringLiteral("tapa.pdf"));
            QString err;
            QCOMPARE(runCli({QStringLiteral("cover"), input, QStringLiteral("--columns"),
                             QStringLiteral("2"), QStringLiteral("--output"), pdf},
                            &err),
                     0);
            const nubo::test::OracleRun run = pdftotext(pdf);
            NUBO_READ(run);
            const QString text = QString::fromUtf8(run.out).simplified(); // blanks folded
            QVERIFY2(text.contains(input == xls ? QStringLiteral("Canción de cuna")
                                                : QStringLiteral("Segunda")),
                     qPrintable(text));
        }
        QString err;
        QCOMPARE(
            runCli({QStringLiteral("cover"), tsv, QStringLiteral("--columns"), QStringLiteral("0"),
                    QStringLiteral("--output"), dir.filePath(QStringLiteral("x.pdf"))},
                   &err),
            1);
        QVERIFY(err.contains(QStringLiteral("División por cero")));
        QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("x.pdf"))));
    }
};

QTEST_MAIN(FormPrint1Test)
#include "tst_FormPrint1.moc"
