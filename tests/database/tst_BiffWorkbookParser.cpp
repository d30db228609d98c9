#include "database/BiffStrings.h"
#include "database/BiffWorkbookParser.h"
#include "database/ByteSink.h"

#include <QtTest>

using namespace nubo::database;

namespace {

template <typename Fill> void record(QByteArray& stream, quint16 type, Fill fill)
{
    QByteArray data;
    ByteSink sink(data);
    fill(sink);
    appendBiffRecord(stream, type, data);
}

void bof(QByteArray& stream, quint16 kind)
{
    record(stream, 0x0809, [&](ByteSink& s) {
        s.u16(0x0600);
        s.u16(kind);
        s.zeros(12);
    });
}

void eof(QByteArray& stream)
{
    appendBiffRecord(stream, 0x000A, {});
}

void cellHead(ByteSink& s, quint16 row, quint16 column)
{
    s.u16(row);
    s.u16(column);
    s.u16(15);
}

// Globals with one sheet and the given shared-string records, then the sheet's cell records.
QByteArray workbook(const QByteArray& sstRecords, const QByteArray& cells)
{
    QByteArray stream;
    bof(stream, 0x0005);
    qsizetype offsetAt = 0;
    record(stream, 0x0085, [&](ByteSink& s) {
        offsetAt = stream.size() + 4;
        s.u32(0);
        s.u16(0);
        appendShortBiffString(s, QStringLiteral("Hoja"));
    });
    stream += sstRecords;
    eof(stream);
    ByteSink::put32(stream, offsetAt, quint32(stream.size()));
    bof(stream, 0x0010);
    stream += cells;
    eof(stream);
    return stream;
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
        record(sst, 0x00FC, [](ByteSink& s) {
            s.u32(2);
            s.u32(2);
            s.u16(5);
            s.u8(0x0C); // 8-bit, rich, extended
            s.u16(1);   // one run
            s.u32(6);   // extension bytes
            s.bytes("abc");
        });
        record(sst, 0x003C, [](ByteSink& s) {
            s.u8(0x01); // the rest is UTF-16
            s.u16(0x00E9);
            s.u16(0x3042);
            s.u16(0); // first half of the run
        });
        record(sst, 0x003C, [](ByteSink& s) {
            s.u16(0);
            s.zeros(6);
            appendBiffString(s, QStringLiteral("último"));
        });
        QByteArray cells;
        for (quint16 i = 0; i < 3; ++i) {
            record(cells, 0x00FD, [&](ByteSink& s) {
                cellHead(s, 2, i);
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
        record(cells, 0x0200, [](ByteSink& s) { // dimensions: rows 0..9
            s.u32(0);
            s.u32(10);
            s.u32(0);
        });
        record(cells, 0x027E, [](ByteSink& s) { // RK: integer 1234 / 100
            cellHead(s, 0, 0);
            s.u32((1234u << 2) | 3);
        });
        record(cells, 0x00BD, [](ByteSink& s) { // MULRK: -7 and 0.5 (as a double's top)
            cellHead(s, 0, 1);
            s.u32(quint32(-7 << 2) | 2);
            s.u16(15);
            s.u32(0x3FE00000);
            s.u16(2);
        });
        record(cells, 0x0203, [](ByteSink& s) {
            cellHead(s, 1, 0);
            s.f64(1234567890123.0);
        });
        record(cells, 0x0006, [](ByteSink& s) { // a formula with a text result
            cellHead(s, 1, 1);
            s.u8(0);
            s.zeros(5);
            s.u16(0xFFFF);
            s.zeros(6);
        });
        record(cells, 0x0207, [](ByteSink& s) { appendBiffString(s, QStringLiteral("fórmula")); });
        record(cells, 0x0205, [](ByteSink& s) { // boolean true
            cellHead(s, 1, 2);
            s.u8(1);
            s.u8(0);
        });
        record(cells, 0x0204, [](ByteSink& s) {
            cellHead(s, 1, 3);
            appendBiffString(s, QStringLiteral("etiqueta"));
        });
        record(cells, 0x0204, [](ByteSink& s) { // column E is not read
            cellHead(s, 1, 4);
            appendBiffString(s, QStringLiteral("fuera"));
        });
        bof(cells, 0x0020); // an embedded chart's substream
        record(cells, 0x0204, [](ByteSink& s) {
            cellHead(s, 0, 3);
            appendBiffString(s, QStringLiteral("gráfico"));
        });
        eof(cells);
        const BiffSheetContent sheet = parse(workbook({}, cells));
        QCOMPARE(sheet.lastRow, 10u);
        QCOMPARE(sheet.rows.at(0), (CatalogueRecord{"12.34", "-7", "0.5", {}}));
        QCOMPARE(sheet.rows.at(1), (CatalogueRecord{"1.23457E+12", QStringLiteral("fórmula"),
                                                    "VERDADERO", "etiqueta"}));
    }

    void olderFormatsAreNamed()
    {
        QByteArray stream;
        record(stream, 0x0809, [](ByteSink& s) {
            s.u16(0x0500);
            s.u16(0x0005);
        });
        QCOMPARE(std::get<BiffProblem>(parseWorkbookStream(stream)), BiffProblem::OlderFormat);
        QCOMPARE(std::get<BiffProblem>(parseWorkbookStream("\x09\x08")), BiffProblem::NotWorkbook);
    }
};

QTEST_GUILESS_MAIN(BiffWorkbookParserTest)
#include "tst_BiffWorkbookParser.moc"
