// SPDX-License-Identifier: GPL-3.0-or-later
#include "BiffFixtures.h"

#include "database/BiffStrings.h"
#include "database/BiffWorkbookParser.h"
#include "database/ByteSink.h"

#include <QtTest>

using namespace nubo::database;

namespace {

using test::biffCellHead;
using test::biffRecord;

QByteArray workbook(const QByteArray& sstRecords, const QByteArray& cells)
{
    return test::biffWorkbook(0x0600, "Hoja", sstRecords, cells);
}

BiffSheetContent parse(const QByteArray& stream)
{
    auto parsed = parseWorkbookStream(stream);
    return std::holds_alternative<BiffSheetContent>(parsed) ? std::get<BiffSheetContent>(parsed)
                                                            : BiffSheetContent{};
}

} // namespace

class BiffWorkbookParserTest final : public QObject
{
    Q_OBJECT

private slots:
    // A rich, extended text that starts in 8 bits and goes on in UTF-16 in a continuation
    // record; its runs and extension data cross a second boundary.
    void sharedStringsAcrossContinuations()
    {
        QByteArray sst;
        biffRecord(sst, 0x00FC, [](ByteSink& s) {
            s.u32(2);
            s.u32(2);
            s.u16(5);
            s.u8(0x0C); // 8-bit, rich, extended
            s.u16(1);   // one run
            s.u32(6);   // extension bytes
            s.bytes("abc");
        });
        biffRecord(sst, 0x003C, [](ByteSink& s) {
            s.u8(0x01); // the rest is UTF-16
            s.u16(0x00E9);
            s.u16(0x3042);
            s.u16(0); // first half of the run
        });
        biffRecord(sst, 0x003C, [](ByteSink& s) {
            s.u16(0);
            s.zeros(6);
            appendBiffString(s, QStringLiteral("último"));
        });
        QByteArray cells;
        for (quint16 i = 0; i < 3; ++i) {
            biffRecord(cells, 0x00FD, [&](ByteSink& s) {
                biffCellHead(s, 2, i);
                s.u32(i); // index 2 does not exist
            });
        }
        const BiffSheetContent sheet = parse(workbook(sst, cells));
        QCOMPARE(sheet.name, QStringLiteral("Hoja"));
        QCOMPARE(sheet.lastRow, 3u);
        QCOMPARE(sheet.rows.at(2).nombre, QStringLiteral("abcéあ"));
        QCOMPARE(sheet.rows.at(2).direccion, QStringLiteral("último"));
        QCOMPARE(sheet.rows.at(2).origen, QString());
    }

    void cellKindsShowAsTheSpreadsheetDoes()
    {
        QByteArray cells;
        biffRecord(cells, 0x0200, [](ByteSink& s) { // dimensions: rows 0..9
            s.u32(0);
            s.u32(10);
            s.u32(0);
        });
        biffRecord(cells, 0x027E, [](ByteSink& s) { // RK: integer 1234 / 100
            biffCellHead(s, 0, 0);
            s.u32((1234u << 2) | 3);
        });
        biffRecord(cells, 0x00BD, [](ByteSink& s) { // MULRK: -7 and 0.5 (as a double's top)
            biffCellHead(s, 0, 1);
            s.u32(quint32(-7 << 2) | 2);
            s.u16(15);
            s.u32(0x3FE00000);
            s.u16(2);
        });
        biffRecord(cells, 0x0203, [](ByteSink& s) {
            biffCellHead(s, 1, 0);
            s.f64(1234567890123.0);
        });
        biffRecord(cells, 0x0006, [](ByteSink& s) { // a formula with a text result
            biffCellHead(s, 1, 1);
            s.u8(0);
            s.zeros(5);
            s.u16(0xFFFF);
            s.zeros(6);
        });
        biffRecord(cells, 0x0207,
                   [](ByteSink& s) { appendBiffString(s, QStringLiteral("fórmula")); });
        biffRecord(cells, 0x0205, [](ByteSink& s) { // boolean true
            biffCellHead(s, 1, 2);
            s.u8(1);
            s.u8(0);
        });
        biffRecord(cells, 0x0204, [](ByteSink& s) {
            biffCellHead(s, 1, 3);
            appendBiffString(s, QStringLiteral("etiqueta"));
        });
        biffRecord(cells, 0x0204, [](ByteSink& s) { // from column E on: values
            biffCellHead(s, 1, 4);
            appendBiffString(s, QStringLiteral("fuera"));
        });
        biffRecord(cells, 0x00BD, [](ByteSink& s) { // MULRK over D, E and F: 7, 8 and 9.5
            biffCellHead(s, 2, 3);
            s.u32((7u << 2) | 2);
            for (const quint32 rk : {(8u << 2) | 2, (950u << 2) | 3}) {
                s.u16(15);
                s.u32(rk);
            }
            s.u16(5);
        });
        test::biffBof(cells, 0x0600, 0x0020); // an embedded chart's substream
        biffRecord(cells, 0x0204, [](ByteSink& s) {
            biffCellHead(s, 0, 3);
            appendBiffString(s, QStringLiteral("gráfico"));
        });
        test::biffEof(cells);
        const BiffSheetContent sheet = parse(workbook({}, cells));
        QCOMPARE(sheet.lastRow, 10u);
        QCOMPARE(sheet.rows.at(0), (CatalogueRecord{"12.34", "-7", "0.5", {}}));
        QCOMPARE(sheet.rows.at(1), (CatalogueRecord{"1.23457E+12", QStringLiteral("fórmula"),
                                                    "VERDADERO", "etiqueta"}));
        QCOMPARE(sheet.rows.at(2).formato, QStringLiteral("7"));
        QCOMPARE(sheet.values.size(), 3);
        QVERIFY(sheet.values.at(0).isEmpty());
        QCOMPARE(sheet.values.at(1).size(), 1);
        QCOMPARE(sheet.values.at(1).at(0).text, QStringLiteral("fuera"));
        QCOMPARE(sheet.values.at(1).at(0).column, 4);
        QCOMPARE(sheet.values.at(2).size(), 2);
        QVERIFY(sheet.values.at(2).at(0).isNumber && sheet.values.at(2).at(1).isNumber);
        QCOMPARE(sheet.values.at(2).at(0).number, 8.0);
        QCOMPARE(sheet.values.at(2).at(1).number, 9.5);
        QCOMPARE(sheet.values.at(2).at(1).column, 5);
    }

    // An Excel 5 sheet: 8-bit texts in the code page, the cell records only Excel 5 writes, 16-bit
    // row numbers in DIMENSIONS.
    void excel5CellsInTheirCodePage()
    {
        QByteArray globals;
        biffRecord(globals, 0x0042, [](ByteSink& s) { s.u16(1252); });
        QByteArray cells;
        biffRecord(cells, 0x0200, [](ByteSink& s) { // dimensions: rows 0..4
            s.u16(0);
            s.u16(5);
            s.u16(0);
            s.u16(4);
            s.u16(0);
        });
        biffRecord(cells, 0x0204, [](ByteSink& s) {
            biffCellHead(s, 0, 0);
            test::appendAnsiText(s, "Caf\xe9 \x80 \x93\xf1\x94");
        });
        biffRecord(cells, 0x00D6, [](ByteSink& s) { // RSTRING: its runs are dropped
            biffCellHead(s, 0, 1);
            test::appendAnsiText(s, "Ni\xf1o");
            s.u8(1);
            s.u16(0);
        });
        biffRecord(cells, 0x0205, [](ByteSink& s) { // error #DIV/0!
            biffCellHead(s, 0, 3);
            s.u8(0x07);
            s.u8(1);
        });
        biffRecord(cells, 0x0006, [](ByteSink& s) { // a formula with a text result
            biffCellHead(s, 1, 2);
            s.u8(0);
            s.zeros(5);
            s.u16(0xFFFF);
            s.zeros(6);
        });
        biffRecord(cells, 0x0207, [](ByteSink& s) { test::appendAnsiText(s, "f\xf3rmula"); });
        biffRecord(cells, 0x0204, [](ByteSink& s) { // a length past the record keeps what is there
            biffCellHead(s, 1, 3);
            s.u16(40);
            s.bytes("cort");
        });
        const BiffSheetContent sheet =
            parse(test::biffWorkbook(0x0500, "Canci\xf3n", globals, cells));
        QCOMPARE(sheet.name, QStringLiteral("Canción"));
        QCOMPARE(sheet.lastRow, 5u);
        QCOMPARE(sheet.rows.at(0), (CatalogueRecord{QStringLiteral("Café € “ñ”"),
                                                    QStringLiteral("Niño"),
                                                    {},
                                                    QStringLiteral("#¡DIV/0!")}));
        QCOMPARE(sheet.rows.at(1), (CatalogueRecord{{}, {}, QStringLiteral("fórmula"), "cort"}));
    }

    void excel5CodePages_data()
    {
        QTest::addColumn<QByteArray>("globals");
        QTest::addColumn<QString>("text");
        QByteArray none;
        QTest::newRow("absent: Windows-1252") << none << QStringLiteral("Çà€");
        QByteArray cyrillic;
        biffRecord(cyrillic, 0x0042, [](ByteSink& s) { s.u16(1251); });
        QTest::newRow("Windows-1251") << cyrillic << QStringLiteral("ЗаЂ");
        QByteArray unknown;
        biffRecord(unknown, 0x0042, [](ByteSink& s) { s.u16(4321); });
        QTest::newRow("unknown: Windows-1252") << unknown << QStringLiteral("Çà€");
    }
    void excel5CodePages()
    {
        QFETCH(QByteArray, globals);
        QFETCH(QString, text);
        QByteArray cells;
        biffRecord(cells, 0x0204, [](ByteSink& s) {
            biffCellHead(s, 0, 0);
            test::appendAnsiText(s, "\xc7\xe0\x80");
        });
        QCOMPARE(parse(test::biffWorkbook(0x0500, "H", globals, cells)).rows.at(0).nombre, text);
    }

    void olderFormatsAreNamed()
    {
        for (const auto& [type, problem] : {std::pair{quint16(0x0009), BiffProblem::Excel2},
                                            std::pair{quint16(0x0209), BiffProblem::Excel3},
                                            std::pair{quint16(0x0409), BiffProblem::Excel4}}) {
            QByteArray stream;
            biffRecord(stream, type, [](ByteSink& s) {
                s.u16(0);
                s.u16(0x0010);
            });
            QCOMPARE(std::get<BiffProblem>(parseWorkbookStream(stream)), problem);
        }
        QCOMPARE(std::get<BiffProblem>(parseWorkbookStream("\x09\x08")), BiffProblem::NotWorkbook);
    }
};

QTEST_GUILESS_MAIN(BiffWorkbookParserTest)
#include "tst_BiffWorkbookParser.moc"
