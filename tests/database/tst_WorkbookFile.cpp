// SPDX-License-Identifier: GPL-3.0-or-later
#include "BiffFixtures.h"
#include "CatalogueSamples.h"

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

// Reads a workbook with xlrd and prints what it saw as JSON: the first sheet's rows as text
// (numbers as General shows them), and with any second argument (formatting on) the cell
// formats its cells use and the style of the last of them. Without xlrd it exits with
// kOracleAbsentStatus.
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
out = {"sheets": b.sheet_names(), "rows": [[text(v) for v in s.row_values(r)] for r in range(s.nrows)]}
if fmt:
    out.update({"cellFormats": sorted({s.cell_xf_index(r, c) for r in range(s.nrows) for c in range(s.row_len(r))}),
       "row2Cells": s.row_len(1) if s.nrows > 1 else 0,
       "rowHeights": sorted({i.height for i in s.rowinfo_map.values()}),
       "widths": [s.colinfo_map[c].width if c in s.colinfo_map else 0 for c in range(4)],
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
    // The sheet ends where the reader expects, and another reader sees the sheet name, the
    // captions, the empty row 2 and every text; the reader's own round trip is tested with
    // the other format's in tst_CatalogueFiles.
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
        const QList<CatalogueRecord> rows = sampleRows(count);
        QVERIFY(save(path, rows));
        WorkbookReader reader;
        const Outcome<> opened = reader.open(path);
        QVERIFY2(opened, qPrintable(opened.reason()));
        QCOMPARE(reader.lastRow(), quint32(count == 0 ? 1 : count + 2));
        const nubo::test::OracleRun run = xlrd(path);
        NUBO_READ(run);
        const QJsonObject seen = seenBy(run);
        QCOMPARE(seen.value("sheets").toArray(), QJsonArray{QStringLiteral("Colección")});
        const QJsonArray sheetRows = seen.value("rows").toArray();
        QCOMPARE(sheetRows.at(0).toArray(),
                 (QJsonArray{"NOMBRE", "DIRECCION", "ORIGEN", "FORMATO"}));
        if (count == 0) {
            QCOMPARE(sheetRows.size(), 1);
            return;
        }
        QCOMPARE(sheetRows.size(), count + 2);
        QCOMPARE(sheetRows.at(1).toArray(), QJsonArray()); // row 2 holds no cells
        for (int i = 0; i < count; ++i) {
            const CatalogueRecord& r = rows.at(i);
            QCOMPARE(sheetRows.at(i + 2).toArray(),
                     (QJsonArray{r.nombre, r.direccion, r.origen, r.formato}));
        }
        // Each column is wide enough for its longest text, up to 60 characters.
        for (int c = 0; c < 4; ++c) {
            qsizetype longest = 10;
            for (const CatalogueRecord& r : rows)
                longest = std::max(longest, std::min<qsizetype>(r.field(c).size(), 60));
            QVERIFY(seen.value("widths").toArray().at(c).toInt() >= longest * 256);
        }
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
            save(path, sampleRows(3), {defaultCatalogueHeader(), QStringLiteral("Hoja"), style}));
        const nubo::test::OracleRun run = xlrd(path);
        NUBO_READ(run);
        const QJsonObject seen = seenBy(run);
        QCOMPARE(seen.value("cellFormats").toArray(), QJsonArray{16}); // one format for all
        QCOMPARE(seen.value("row2Cells").toInt(), 4); // the empty row lies in the styled range
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
        const QList<CatalogueRecord> rows = sampleRows(3);
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
        QCOMPARE(seen.value("cellFormats").toArray(), QJsonArray{15});
        QCOMPARE(seen.value("row2Cells").toInt(), 0);
        QCOMPARE(seen.value("rowHeights").toArray(), QJsonArray{255});
        QCOMPARE(seen.value("formats").toInt(), 16);
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
        const QList<CatalogueRecord> rows = {
            {QString(10000, QLatin1Char('x')), wide, QString(20000, QChar(0x00E9)),
             QStringLiteral("MP3")},
            {QString(10000, QChar(0x30A2)), QStringLiteral("b"), {}, planes}};
        QVERIFY(save(path, rows));
        QCOMPARE(loadCatalogue(path)->rows, rows);
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
