// SPDX-License-Identifier: GPL-3.0-or-later
#include "BiffFixtures.h"
#include "CatalogueSamples.h"
#include "SheetTexts.h"

#include "database/CatalogueFiles.h"
#include "database/GsfSession.h"
#include "database/WorkbookReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

#include "Oracle.h"
#include "TestFiles.h"

using namespace nubo::database;
using namespace nubo::database::test;
using nubo::Outcome;

namespace {

// Reads a workbook with xlrd and prints what it saw as JSON: each sheet's rows as text (whole
// numbers as digits), the columns of each sheet that hold numbers, and with any second argument
// (formatting on) the cell formats its cells use, their number formats and the style of the
// last of them. Without xlrd it exits with kOracleAbsentStatus.
const char* const kXlrdScript = R"(
import json, sys
try:
    import xlrd
except ImportError:
    sys.exit(77)
fmt = len(sys.argv) > 2
b = xlrd.open_workbook(sys.argv[1], formatting_info=fmt, ragged_rows=True, logfile=sys.stderr)
s = b.sheet_by_index(0)
text = lambda v: ("%d" % v if v == int(v) else repr(v)) if isinstance(v, float) else v
rows = lambda t: [[text(v) for v in t.row_values(r)] for r in range(t.nrows)]
numeric = lambda t: sorted({c for r in range(t.nrows) for c in range(t.row_len(r)) if t.cell_type(r, c) == xlrd.XL_CELL_NUMBER})
out = {"sheets": b.sheet_names(), "rows": rows(s), "numberColumns": numeric(s),
    "discRows": rows(b.sheet_by_index(1)) if b.nsheets > 1 else [],
    "discNumberColumns": numeric(b.sheet_by_index(1)) if b.nsheets > 1 else []}
if fmt:
    used = sorted({s.cell_xf_index(r, c) for r in range(s.nrows) for c in range(s.row_len(r))})
    out.update({"cellFormats": used, "numberFormats": sorted({b.xf_list[x].format_key for x in used}),
       "row2Cells": s.row_len(1) if s.nrows > 1 else 0,
       "rowHeights": sorted({i.height for i in s.rowinfo_map.values()}),
       "widths": [s.colinfo_map[c].width if c in s.colinfo_map else 0 for c in range(s.ncols)],
       "formats": len(b.xf_list), "fonts": len(b.font_list), "palette": len(b.palette_record)})
if fmt and s.nrows > 0:
    xf = b.xf_list[out["cellFormats"][-1]]
    f = b.font_list[xf.font_index]
    d = xf.border
    rgb = lambda i: b.colour_map.get(i)
    out["style"] = {"font": f.name, "height": f.height, "bold": f.weight >= 700, "italic": bool(f.italic),
        "underline": f.underline_type, "fontColor": rgb(f.colour_index),
        "fill": rgb(xf.background.pattern_colour_index), "pattern": xf.background.fill_pattern,
        "lines": [d.top_line_style, d.bottom_line_style, d.left_line_style, d.right_line_style],
        "lineColors": [rgb(i) for i in (d.top_colour_index, d.bottom_colour_index, d.left_colour_index, d.right_colour_index)]}
print(json.dumps(out))
)";

static_assert(nubo::test::kOracleAbsentStatus == 77, "the xlrd script's status when absent");

// xlrd's reading of the workbook at path; its output is the script's JSON.
nubo::test::OracleRun xlrd(const QString& path, bool formatting = true)
{
    QStringList args{QStringLiteral("-c"), QString::fromLatin1(kXlrdScript), path};
    if (formatting)
        args.append(QStringLiteral("formatting"));
    nubo::test::OracleRun run = nubo::test::runOracle(QStringLiteral("python3"), args);
    run.what = QStringLiteral("python3-xlrd");
    return run;
}

QJsonObject seenBy(const nubo::test::OracleRun& run)
{
    return QJsonDocument::fromJson(run.out).object();
}

// The first sheet's cells as xlrd read them, rows cut or padded to four.
QList<QStringList> cellsSeenBy(const nubo::test::OracleRun& run)
{
    QList<QStringList> rows;
    for (const QJsonValue row : seenBy(run).value("rows").toArray()) {
        QStringList cells(4);
        for (int c = 0; c < 4 && c < row.toArray().size(); ++c)
            cells[c] = row.toArray().at(c).toString();
        rows.append(cells);
    }
    return rows;
}

// A sheet as the xlrd script shows it: captions, the empty row 2, then each row without its
// trailing empty cells.
QJsonArray sheetSeen(const QStringList& captions, QList<QStringList> table)
{
    QJsonArray sheet{QJsonArray::fromStringList(captions)};
    if (!table.isEmpty())
        sheet.append(QJsonArray());
    for (QStringList& texts : table) {
        while (!texts.isEmpty() && texts.last().isEmpty())
            texts.removeLast();
        sheet.append(QJsonArray::fromStringList(texts));
    }
    return sheet;
}

bool save(const QString& path, const QList<CatalogueRecord>& rows,
          const CatalogueSaveOptions& options = {})
{
    return saveCatalogue(path, options, rowsOf(rows)).ok;
}

} // namespace

class WorkbookFileTest final : public QObject
{
    Q_OBJECT

private slots:
    // The sheet ends where the reader expects, and another reader sees both sheets, the
    // captions, the empty row 2 and every value, sizes as numbers; our reader gives back every
    // column and every disc record.
    void xlrdReadsWhatWeWrite_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("empty") << 0;
        QTest::newRow("thirty thousand") << 30000;
    }
    void xlrdReadsWhatWeWrite()
    {
        QFETCH(int, count);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("lista.xls"));
        const QList<CatalogueRecord> rows = detailedRows(count);
        CatalogueSaveOptions options;
        options.discs = count == 0 ? QList<nubo::core::DiscRecord>() : sampleDiscs();
        QVERIFY(save(path, rows, options));
        const auto loaded = loadCatalogue(path);
        QVERIFY2(loaded, qPrintable(loaded.reason()));
        QCOMPARE(loaded->rows, rows);
        QCOMPARE(loaded->discs, options.discs);
        QVERIFY(loaded->skipped.isEmpty());
        const nubo::test::OracleRun run = xlrd(path);
        NUBO_READ(run);
        const QJsonObject seen = seenBy(run);
        QCOMPARE(seen.value("sheets").toArray(), (QJsonArray{"Colección", "Discos"}));
        QCOMPARE(seen.value("numberColumns").toArray(), count == 0 ? QJsonArray() : QJsonArray{4});
        const QList<QStringList> table = textTable(rows);
        QCOMPARE(seen.value("rows").toArray(), sheetSeen(captionRow(), table));
        QCOMPARE(seen.value("discRows").toArray(),
                 sheetSeen(nubo::core::discCaptions(), textTable(options.discs)));
        if (count > 0)
            QCOMPARE(seen.value("discNumberColumns").toArray(), (QJsonArray{4, 5}));
        // Each column is wide enough for its longest text, up to 60 characters.
        const QJsonArray widths = seen.value("widths").toArray();
        QCOMPARE(widths.size(), 13);
        for (int c = 0; c < 13; ++c) {
            qsizetype longest = 10;
            for (const QStringList& texts : table)
                longest = std::max(longest, std::min<qsizetype>(texts.at(c).size(), 60));
            QVERIFY(widths.at(c).toInt() >= longest * 256);
            QVERIFY(widths.at(c).toInt() <= 62 * 256);
        }
    }

    // Gnumeric reads both sheets with every column; sizes past 4 GB show whole.
    void gnumericReadsEverySheet()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("lista.xls"));
        const QList<CatalogueRecord> rows = detailedRows(40);
        CatalogueSaveOptions options;
        options.discs = sampleDiscs();
        options.style = SheetStyle{};
        QVERIFY(save(path, rows, options));
        const nubo::test::OracleRun run = nubo::test::runOracle(
            QStringLiteral("ssconvert"),
            {QStringLiteral("-S"), path, dir.filePath(QStringLiteral("hoja%n.csv"))});
        NUBO_READ(run);
        const QList<QStringList> sheet = csvRows(dir.filePath(QStringLiteral("hoja0.csv")));
        QCOMPARE(sheet.value(0), captionRow());
        QCOMPARE(sheet.mid(2), textTable(rows));
        const QList<QStringList> discs = csvRows(dir.filePath(QStringLiteral("hoja1.csv")));
        QCOMPARE(discs.value(0), nubo::core::discCaptions());
        QCOMPARE(discs.mid(2), textTable(options.discs));
    }

    // The fill takes the palette's last default colour, which the other two colours must not
    // push out.
    void stylesReachTheSheet()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("estilo.xls"));
        SheetStyle style{
            0x333333, 0x123456, excel::kDash, excel::kMedium, QStringLiteral("Times New Roman"),
            12.5,     true,     true,         true,           0xC00001};
        QVERIFY(
            save(path, detailedRows(3), {defaultCatalogueHeader(), QStringLiteral("Hoja"), style}));
        const nubo::test::OracleRun run = xlrd(path);
        NUBO_READ(run);
        const QJsonObject seen = seenBy(run);
        // One format for every text and one for the sizes, which shows them whole ("0").
        QCOMPARE(seen.value("cellFormats").toArray(), (QJsonArray{16, 17}));
        QCOMPARE(seen.value("numberFormats").toArray(), (QJsonArray{0, 1}));
        QCOMPARE(seen.value("row2Cells").toInt(), 13); // the empty row lies in the styled range
        QCOMPARE(seen.value("rowHeights").toArray(), QJsonArray{319}); // 12.5 points of font
        const QJsonArray blue{0x12, 0x34, 0x56};
        QCOMPARE(seen.value("style").toObject(),
                 (QJsonObject{{"font", "Times New Roman"},
                              {"height", 250},
                              {"bold", true},
                              {"italic", true},
                              {"underline", 1},
                              {"fontColor", QJsonArray{0xC0, 0, 1}},
                              {"fill", QJsonArray{0x33, 0x33, 0x33}},
                              {"pattern", 1},
                              {"lines", QJsonArray{8, 8, 8, 8}}, // medium dashed
                              {"lineColors", QJsonArray{blue, blue, blue, blue}}}));
    }

    // Without a style, and when a save is stopped, the file holds the default fonts and cell
    // formats only, and every cell uses the default cell format.
    void unstyledSheetsKeepTheDefaults_data()
    {
        QTest::addColumn<bool>("stopped");
        QTest::newRow("no style") << false;
        QTest::newRow("stopped save") << true;
    }
    void unstyledSheetsKeepTheDefaults()
    {
        QFETCH(bool, stopped);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("llano.xls"));
        const QList<CatalogueRecord> rows = detailedRows(3);
        CatalogueSaveOptions options;
        if (stopped)
            options.style = SheetStyle{};
        SaveHooks hooks;
        hooks.beforeRow = [stopped](qsizetype i) { return !stopped || i < 2; };
        const SaveOutcome outcome = saveCatalogue(path, options, rowsOf(rows), hooks);
        QVERIFY(outcome.ok);
        QCOMPARE(outcome.stopped, stopped);
        const nubo::test::OracleRun run = xlrd(path);
        NUBO_READ(run);
        const QJsonObject seen = seenBy(run);
        QCOMPARE(seen.value("cellFormats").toArray(), (QJsonArray{15, 16}));
        QCOMPARE(seen.value("numberFormats").toArray(), (QJsonArray{0, 1}));
        QCOMPARE(seen.value("row2Cells").toInt(), 0);
        QCOMPARE(seen.value("rowHeights").toArray(), QJsonArray{255});
        QCOMPARE(seen.value("formats").toInt(), 17);
        QCOMPARE(seen.value("fonts").toInt(), 4);
        QCOMPARE(seen.value("palette").toInt(), 0);
    }

    void longCellsAndEveryPlane()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("largo.xls"));
        QString planes;
        for (char32_t c : {U'a', U'é', U'Ω', U'ア', U'😀', U'𠜎', U'\U000E0041', U'\U0010FFFD'})
            planes += QString::fromUcs4(&c, 1);
        // Texts that cross two and three continuation records, in both encodings, with a
        // surrogate pair on a record boundary.
        QString wide = planes.repeated(1250);
        wide.insert(4111 - 1, QStringLiteral("😀"));
        QList<CatalogueRecord> rows = {
            {QString(10000, QLatin1Char('x')), wide, QString(20000, QChar(0x00E9)),
             QStringLiteral("MP3")},
            {QString(10000, QChar(0x30A2)), QStringLiteral("b"), {}, planes}};
        rows[0].details.title = QString(10000, QChar(0x00F1)); // 10,000-character tags
        rows[0].details.artist = wide;
        rows[1].details.album = QString(32767, QLatin1Char('a'));
        rows[1].details.title = QString::fromUtf16(u"NUL\0y\xD800 sola", 11); // NUL, lone surrogate
        QVERIFY(save(path, rows));
        QCOMPARE(loadCatalogue(path)->rows, rows);
        // Past a cell's limit the save is refused and names it, as for the four columns.
        rows[1].details.genre = QString(32768, QLatin1Char('g'));
        const SaveOutcome refused =
            saveCatalogue(dir.filePath(QStringLiteral("no.xls")), {}, rowsOf(rows));
        QVERIFY(!refused.ok);
        QVERIFY2(refused.reason.contains(QStringLiteral("32767")), qPrintable(refused.reason));
    }

    // Workbooks written by other programs open, with their first sheet's name.
    void fixturesOpen()
    {
        NUBO_FIXTURES_DIR(fixtures);
        for (const char* file : {"test2.xls", "Employee.xls", "SimpleWithColours.xls",
                                 "blankworkbook.xls", "unicodeNameRecord.xls", "SampleSS.xls"}) {
            WorkbookReader reader;
            QVERIFY2(bool(reader.open(fixtures.filePath(QLatin1String(file)))), file);
            QVERIFY(!reader.sheetName().isEmpty());
            if (QLatin1String(file) == QLatin1String("SampleSS.xls"))
                QCOMPARE(reader.sheetName(), QStringLiteral("First Sheet"));
        }
        WorkbookReader table;
        QVERIFY(bool(table.open(fixtures.filePath(QStringLiteral("test2.xls")))));
        // Its row 2 holds text, so its rows from 2 on are seen one row lower.
        QCOMPARE(table.lastRow(), 25u);
        QCOMPARE(table.record(1), (CatalogueRecord{"a", "b", "c", "d"}));
        QCOMPARE(table.record(2), CatalogueRecord{});
        QCOMPARE(table.record(3), (CatalogueRecord{"2", "This", "is", "a"}));
    }

    // Workbooks as other producers write them load with every row; xlrd reads the same cells.
    void workbooksFromElsewhere_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("sheetName");
        QTest::addColumn<QList<QStringList>>("cells");
        QTest::addColumn<bool>("xlrdReads");
        const QByteArray summary(200, '\x07'); // a stream ahead of the workbook
        QTest::newRow("Excel 97 stream named BOOK")
            << test::compoundFile({{"BOOK", test::sharedStringSheet(3)}}) << "Hoja1"
            << test::sharedStringCells(3) << true;
        QTest::newRow("empty small-stream size")
            << test::withEmptySmallStreamSize(
                   test::compoundFile({{"\005SummaryInformation", summary},
                                       {"Workbook", test::sharedStringSheet(150)}}))
            << "Hoja1" << test::sharedStringCells(150) << true;
        // xlrd gives up here: the stream lives in the container whose size reads 0.
        QTest::newRow("empty small-stream size, workbook in it")
            << test::withEmptySmallStreamSize(test::compoundFile(
                   {{"\005SummaryInformation", summary}, {"Workbook", test::sharedStringSheet(2)}}))
            << "Hoja1" << test::sharedStringCells(2) << false;
        QTest::newRow("Excel 5 workbook")
            << test::compoundFile({{"Book", test::excel5Catalogue()}}) << QStringLiteral("Canción")
            << test::excel5Cells() << true;
    }
    void workbooksFromElsewhere()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, sheetName);
        QFETCH(QList<QStringList>, cells);
        QFETCH(bool, xlrdReads);
        QVERIFY(file.size() < 50 * 1024);
        WorkbookReader reader;
        const Outcome<> read = reader.read(file, QStringLiteral("libro.xls"));
        QVERIFY2(read, qPrintable(read.reason()));
        QCOMPARE(reader.sheetName(), sheetName);
        // Data in row 2 is seen one row lower, where a catalogue's data starts.
        QList<QStringList> expected = cells;
        if (!expected.at(1).join(QString()).isEmpty())
            expected.insert(1, QStringList(4));
        QCOMPARE(reader.lastRow(), quint32(expected.size()));
        for (quint32 r = 1; r <= reader.lastRow(); ++r) {
            const CatalogueRecord got = reader.record(r);
            QCOMPARE((QStringList{got.nombre, got.direccion, got.origen, got.formato}),
                     expected.at(r - 1));
        }
        if (!xlrdReads)
            return;
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("libro.xls"));
        QVERIFY(nubo::test::writeFile(path, file));
        const nubo::test::OracleRun run = xlrd(path, false);
        NUBO_READ(run);
        QCOMPARE(cellsSeenBy(run), cells);
    }

    // Older files are refused with their version named; the library's own warnings on a
    // damaged container go to the sink, not to the terminal.
    void olderAndDamagedFiles()
    {
        QByteArray excel4;
        test::biffRecord(excel4, 0x0409, [](ByteSink& s) {
            s.u16(0);
            s.u16(0x0010);
        });
        WorkbookReader reader;
        const Outcome<> refused = reader.read(excel4, QStringLiteral("viejo.xls"));
        QVERIFY(!refused);
        QVERIFY2(refused.reason().contains(QStringLiteral("Excel 4")),
                 qPrintable(refused.reason()));
        QStringList messages;
        setGsfMessageSink([&messages](const QString& line) { messages.append(line); });
        QByteArray damaged = test::compoundFile({{"Workbook", test::sharedStringSheet(2)}});
        damaged[damaged.size() - 100] = '\x55';
        ByteSink::put32(damaged, 0x3C, 0x7FFF); // the small-sector table starts past the end
        // Whether the damaged file reads at all does not matter here: only where the warnings go.
        (void)reader.read(damaged, QStringLiteral("roto.xls"));
        setGsfMessageSink({});
        QVERIFY(!messages.isEmpty());
        QVERIFY2(messages.first().contains(QLatin1String("libgsf")), qPrintable(messages.first()));
    }
};

QTEST_GUILESS_MAIN(WorkbookFileTest)
#include "tst_WorkbookFile.moc"
