// SPDX-License-Identifier: GPL-3.0-or-later
#include "CatalogueSamples.h"
#include "SheetTexts.h"

#include "database/CatalogueFiles.h"
#include "database/DatabaseReader.h"
#include "database/JetPages.h"
#include "database/JetSystemTables.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include "Oracle.h"
#include "TestFiles.h"

using namespace nubo::database;
using namespace nubo::database::test;
using nubo::Outcome;
using nubo::core::DetailField;
using nubo::core::DiscRecord;
namespace jet = nubo::database::jet;

namespace {

// The shared rows as mdb-export prints them whole (no characters outside the BMP), with a
// quote and a comma in a text for its CSV quoting.
QList<CatalogueRecord> exportableRows(int count)
{
    QList<CatalogueRecord> rows = detailedRows(count);
    for (CatalogueRecord& r : rows) {
        r.nombre.replace(QStringLiteral("🎵 Tema 𝄞"), QStringLiteral("Tema"));
        r.details.album.replace(QStringLiteral("Álbum"), QStringLiteral("Álbum, \""));
    }
    return rows;
}

// mdb-export's CSV of a table: the captions, then each record's texts with the numbers in the
// given columns bare, the other texts quoted and unknowns empty.
QByteArray exportedCsv(const QStringList& captions, const QList<QStringList>& records,
                       const QList<int>& numbers)
{
    QByteArray csv = captions.join(u',').toUtf8() + '\n';
    for (QStringList texts : records) {
        for (int c = 0; c < texts.size(); ++c) {
            if (!numbers.contains(c) && !texts[c].isEmpty())
                texts[c] = u'"' + texts[c].replace(u'"', QStringLiteral("\"\"")) + u'"';
        }
        csv += texts.join(u',').toUtf8() + '\n';
    }
    return csv;
}

// A table as another program (or an earlier version) may have written it.
struct OtherTable
{
    QString name;
    QList<jet::Column> columns;
    QList<QList<jet::Value>> rows; // each fits one page with the others
};

jet::Column otherColumn(const QString& name, quint8 type)
{
    jet::Column c;
    c.name = name;
    c.type = type;
    const bool text = type == jet::kText;
    const bool memo = type == jet::kMemo;
    c.length = text ? 510 : memo ? 0 : (type == jet::kLong ? 4 : 8);
    c.flags = jet::kUpdatableColumn | (text || memo ? 0 : jet::kFixedColumn);
    c.extFlags = text ? jet::kCompressedText : 0;
    return c;
}

jet::Column otherText(const QString& name)
{
    return otherColumn(name, jet::kText);
}

// A database holding the tables, each with one data page.
QByteArray otherDatabase(QList<OtherTable> tables)
{
    const auto count = quint32(tables.size());
    QList<jet::UserTable> listed;
    QList<QByteArray> maps;
    QList<QByteArray> definitions;
    QList<QByteArray> data;
    QList<QByteArray> mapPages;
    for (quint32 t = 0; t < count; ++t) {
        jet::Table table;
        table.name = tables[t].name;
        table.columns = tables[t].columns;
        for (int c = 0; c < table.columns.size(); ++c)
            table.columns[c].number = quint16(c);
        table.rowCount = quint32(tables[t].rows.size());
        table.usedPages = {jet::page::kUsageMaps, quint8(jet::maprow::kUserTableUsed + 2 * t)};
        table.freePages = {jet::page::kUsageMaps, quint8(jet::maprow::kUserTableUsed + 2 * t + 1)};
        const quint32 definition = jet::page::kUserTable + t;
        const quint32 dataPage = jet::page::kUserTable + count + t;
        listed.append({table.name, definition});
        maps << jet::usageMapRow({dataPage}, 0, &mapPages)
             << jet::usageMapRow({dataPage}, 0, &mapPages);
        definitions.append(jet::tableDefinitionPage(table));
        jet::DataPage rows(definition);
        const jet::RowLayout layout = jet::layoutOf(table);
        for (const QList<jet::Value>& row : std::as_const(tables[t].rows))
            rows.add(jet::encodeRow(layout, row));
        data.append(rows.bytes());
    }
    QList<QByteArray> pages = {jet::headerPage(40000),
                               jet::allocationPage(jet::page::kUserTable + 2 * count)};
    pages += jet::SystemCatalog(listed, 40000).pages(maps);
    return (pages + definitions + data).join();
}

QList<jet::Column> listTexts()
{
    QList<jet::Column> columns;
    for (const QString& name : defaultCatalogueHeader())
        columns.append(otherText(name));
    return columns;
}

QList<jet::Value> listValues(const QString& name)
{
    return {name, QStringLiteral("/Música/"), QStringLiteral("Disco 1"), QStringLiteral("MP3")};
}

struct Read
{
    LoadOutcome outcome;
    QList<CatalogueRecord> rows;
    std::optional<QList<DiscRecord>> discs;
};

Read readBack(const QString& path)
{
    Read read;
    LoadHooks hooks;
    hooks.row = [&read](CatalogueRecord&& r) { read.rows.prepend(std::move(r)); };
    hooks.discs = [&read](QList<DiscRecord>&& d) { read.discs = std::move(d); };
    read.outcome = readDatabase(path, hooks);
    return read;
}

} // namespace

class DatabaseFileTest final : public QObject
{
    Q_OBJECT

private slots:
    // Dates are local times: a zone with summer time puts the hours that change into the files.
    void initTestCase() { qputenv("TZ", "Europe/Madrid"); }

    // The written tables as mdbtools sees them: its version, both tables, the field types and
    // every value; the reader's own round trip is below.
    void writtenTablesReadElsewhere()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("lista.mdb"));
        const QList<CatalogueRecord> rows = exportableRows(2000);
        CatalogueSaveOptions options;
        options.discs = sampleDiscs();
        QVERIFY(saveCatalogue(path, options, rowsOf(rows)).ok);
        const nubo::test::OracleRun version =
            nubo::test::runOracle(QStringLiteral("mdb-ver"), {path});
        NUBO_READ(version);
        QCOMPARE(version.out.trimmed(), QByteArray("JET4"));
        const nubo::test::OracleRun tables =
            nubo::test::runOracle(QStringLiteral("mdb-tables"), {QStringLiteral("-1"), path});
        NUBO_READ(tables);
        QCOMPARE(tables.out, QByteArray("Catalogo\nDiscos\n"));
        const nubo::test::OracleRun schema =
            nubo::test::runOracle(QStringLiteral("mdb-schema"), {path});
        NUBO_READ(schema);
        QVERIFY2(schema.out.contains("[TAMAÑO]\t\t\tDouble") &&
                     schema.out.contains("[AÑO]\t\t\tLong Integer") &&
                     schema.out.contains("[LIBRE]\t\t\tDouble"),
                 schema.out.constData());
        const nubo::test::OracleRun exported =
            nubo::test::runOracle(QStringLiteral("mdb-export"), {path, QStringLiteral("Catalogo")});
        NUBO_READ(exported);
        QCOMPARE(exported.out, exportedCsv(captionRow(), textTable(rows), {4, 9, 10}));
        const nubo::test::OracleRun discs =
            nubo::test::runOracle(QStringLiteral("mdb-export"), {path, QStringLiteral("Discos")});
        NUBO_READ(discs);
        QCOMPARE(discs.out,
                 exportedCsv(nubo::core::discCaptions(), textTable(options.discs), {4, 5}));
    }

    // Every column and every disc comes back; a tag longer than a field is cut at its limit
    // (never through a character) and said, and the row's other columns are whole.
    void roundTrip_data()
    {
        QTest::addColumn<QList<CatalogueRecord>>("rows");
        QTest::addColumn<QList<DiscRecord>>("discs");
        QTest::addColumn<qsizetype>("shortened");
        QTest::newRow("nothing") << QList<CatalogueRecord>() << QList<DiscRecord>() << qsizetype(0);
        QTest::newRow("every column") << detailedRows(3000) << sampleDiscs() << qsizetype(0);
        // Larger than the blocks a file is read (and freed) in.
        QTest::newRow("forty thousand")
            << detailedRows(40000) << QList<DiscRecord>() << qsizetype(0);
        CatalogueRecord longTags = detailedRows(1).first();
        longTags.details.title = QString(9999, u'a') + QStringLiteral("𝄞");
        longTags.details.artist = QString(254, u'b') + QStringLiteral("𝄞");
        longTags.details.genre = QString(10000, QChar(0x00D1));
        longTags.details.modified = -300000000; // 1960
        longTags.details.title[5] = QChar(0);   // a tag with a NUL in it
        QList<DiscRecord> longNotes = sampleDiscs();
        longNotes[1].notas = QString(300, u'n');
        QTest::newRow("long texts") << QList{longTags} << longNotes << qsizetype(4);
    }
    void roundTrip()
    {
        QFETCH(QList<CatalogueRecord>, rows);
        QFETCH(QList<DiscRecord>, discs);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("lista.mdb"));
        CatalogueSaveOptions options;
        options.discs = discs;
        const SaveOutcome saved = saveCatalogue(path, options, rowsOf(rows));
        QVERIFY(saved.ok);
        QTEST(saved.shortened, "shortened");
        QCOMPARE(shortenedText(saved).isEmpty(), saved.shortened == 0);
        const Read read = readBack(path);
        QVERIFY2(read.outcome.ok && !read.outcome.damaged, qPrintable(read.outcome.damage));
        QCOMPARE(read.outcome.skipped.count, 0);
        for (CatalogueRecord& r : rows) {
            // A date comes back as its text says (within an hour that repeats, the first).
            QVERIFY(r.details.setText(DetailField::Fecha, r.details.text(DetailField::Fecha)));
            for (QString* tag : {&r.details.title, &r.details.artist, &r.details.genre})
                tag->truncate(tag->size() > 255 ? (tag->at(254).isHighSurrogate() ? 254 : 255)
                                                : tag->size());
        }
        for (DiscRecord& d : discs)
            d.notas.truncate(255);
        QCOMPARE(read.rows, rows);
        QVERIFY(read.discs);
        QCOMPARE(*read.discs, discs);
    }

    // Files of an earlier version (four fields, no discs) and tables another program changed:
    // the details are found by name wherever they are, values that are none of their field
    // are left empty and counted, and the four list fields always read.
    void otherLayouts_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QStringList>("details"); // TAMAÑO .. DURACION as the list shows them
        QTest::addColumn<qsizetype>("skipped");
        QTest::addColumn<int>("discs"); // -1: the file has no table of discs
        const QStringList none(nubo::core::kDetailFieldCount);
        QTest::newRow("four fields")
            << otherDatabase({{QStringLiteral("Catalogo"), listTexts(), {listValues("a")}}}) << none
            << qsizetype(0) << -1;
        QList<jet::Column> moved = listTexts();
        moved << otherText(QStringLiteral("duracion")) << otherText(QStringLiteral("NOTAS"))
              << otherColumn(QStringLiteral("Tamano"), jet::kLong)
              << otherColumn(QStringLiteral(" año "), jet::kDouble)
              << otherColumn(QStringLiteral("fecha"), jet::kDateTime)
              << otherColumn(QStringLiteral("Título"), jet::kMemo);
        // A Memo value held in its row: its length with the in-row bit, 8 bytes, the text.
        const QByteArray memo = jet::encodeText(QStringLiteral("Canción larga ♪"), true);
        QByteArray memoField = QByteArray::fromHex("00000080") + QByteArray(8, '\0') + memo;
        memoField[0] = char(memo.size());
        QList<jet::Value> movedRow = listValues("a");
        movedRow << QStringLiteral("1:02:03") << QStringLiteral("x") << qint64(123) << 1979.0
                 << 45000.5 << memoField;
        const QString e;
        const QStringList movedDetails = {
            "123", "2023-03-15 12:00", "Canción larga ♪", e, e, "1979", e, e, "1:02:03"};
        QTest::newRow("moved, renamed, retyped")
            << otherDatabase({{QStringLiteral("Alfa"), listTexts(), {}},
                              {QStringLiteral("Catalogo"), moved, {movedRow}}})
            << movedDetails << qsizetype(0) << -1;
        QList<jet::Column> all = listTexts();
        for (const QString& caption : nubo::core::detailCaptions())
            all << otherText(caption);
        QList<jet::Value> garbage = listValues("a");
        garbage << QStringLiteral("mucho") << QStringLiteral("ayer") << QStringLiteral("T")
                << QString() << QStringLiteral("Á") << QStringLiteral("-1979")
                << QStringLiteral("0") << QStringLiteral("\u0000") << QStringLiteral("1:99");
        const QStringList garbageDetails = {e, e, "T", e, "Á", e, e, QStringLiteral("\u0000"), e};
        QList<jet::Column> discColumns;
        for (const QString& caption : nubo::core::discCaptions())
            discColumns << otherText(caption);
        QList<jet::Value> discRow(discColumns.size());
        QList<jet::Value> anonymous = discRow;
        discRow[0] = QStringLiteral("Otro disco");
        discRow[4] = QStringLiteral("grande");
        QTest::newRow("values of no field")
            << otherDatabase({{QStringLiteral("Catalogo"), all, {garbage}},
                              {QStringLiteral("Discos"), discColumns, {discRow, anonymous}}})
            << garbageDetails << qsizetype(7) << 1;
    }
    void otherLayouts()
    {
        QFETCH(QByteArray, file);
        QFETCH(QStringList, details);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("otra.mdb"));
        QVERIFY(nubo::test::writeFile(path, file));
        const Read read = readBack(path);
        QVERIFY2(read.outcome.ok && !read.outcome.damaged, qPrintable(read.outcome.damage));
        QCOMPARE(read.outcome.name, QStringLiteral("Catalogo"));
        QCOMPARE(read.rows.size(), 1);
        QCOMPARE(read.rows[0].nombre, QStringLiteral("a"));
        QCOMPARE(read.rows[0].formato, QStringLiteral("MP3"));
        QStringList texts;
        for (int f = 0; f < nubo::core::kDetailFieldCount; ++f)
            texts << read.rows[0].details.text(DetailField(f));
        QCOMPARE(texts, details);
        QTEST(read.outcome.skipped.count, "skipped");
        QCOMPARE(skippedText(QString(), read.outcome.skipped).isEmpty(),
                 read.outcome.skipped.count == 0);
        QTEST(read.discs ? int(read.discs->size()) : -1, "discs");
    }

    // Damaged copies of a file with every column: rows or an error, never a crash or a read
    // outside the file (the sanitizers watch).
    void damagedFilesNeverCrash()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("lista.mdb"));
        CatalogueSaveOptions options;
        options.discs = sampleDiscs();
        QVERIFY(saveCatalogue(path, options, rowsOf(detailedRows(300))).ok);
        const QByteArray whole = nubo::test::fileBytes(path);
        QRandomGenerator random(31);
        const QString damaged = dir.filePath(QStringLiteral("dañado.mdb"));
        for (int round = 0; round < 300; ++round) {
            QByteArray bytes = round % 10 == 0 ? whole.left(random.bounded(whole.size())) : whole;
            const qsizetype page = 2 + random.bounded(qsizetype(whole.size() / 4096 - 2));
            for (int hit = 0; hit < 16 && round % 10 != 0; ++hit)
                bytes[page * 4096 + random.bounded(4096)] = char(random.bounded(256));
            QVERIFY(nubo::test::writeFile(damaged, bytes));
            const Read read = readBack(damaged);
            QVERIFY(read.outcome.ok || !read.outcome.reason.isEmpty());
        }
    }

    void fixturesOpen_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("table"); // empty: no user table, an error
        QTest::addColumn<int>("records");
        QTest::addColumn<QString>("text"); // a DIRECCION the reader must decode
        QTest::newRow("Access 2000") << "fixedTextTestV2000.mdb"
                                     << "users" << 2 << QString();
        QTest::newRow("compressed text") << "testUnicodeCompV2003.mdb"
                                         << "Table" << 8 << QStringLiteral("漢字仮名交じり文");
        QTest::newRow("no user table") << "adox_jet4.mdb" << QString() << 0 << QString();
    }
    void fixturesOpen()
    {
        QFETCH(QString, file);
        QFETCH(QString, table);
        QFETCH(QString, text);
        NUBO_FIXTURES_DIR(fixtures);
        const QString path = fixtures.filePath(file);
        DatabaseReader reader;
        const Outcome<> opened = reader.open(path);
        QCOMPARE(bool(opened), !table.isEmpty());
        if (table.isEmpty())
            QVERIFY(opened.reason().contains(QStringLiteral("ninguna tabla")));
        QCOMPARE(reader.tableName(), table);
        const auto loaded = loadCatalogue(path);
        const QList<CatalogueRecord> rows = loaded ? loaded->rows : QList<CatalogueRecord>();
        QTEST(int(rows.size()), "records");
        QVERIFY(text.isEmpty() || std::any_of(rows.begin(), rows.end(),
                                              [&](const auto& r) { return r.direccion == text; }));
    }
};

Q_DECLARE_METATYPE(QList<DiscRecord>)
QTEST_GUILESS_MAIN(DatabaseFileTest)
#include "tst_DatabaseFile.moc"
