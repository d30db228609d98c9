// SPDX-License-Identifier: GPL-3.0-or-later
#include "BiffFixtures.h"
#include "CatalogueSamples.h"
#include "SheetTexts.h"

#include "database/CatalogueFiles.h"
#include "database/CompoundFile.h"
#include "database/LocalDateTexts.h"
#include "database/WorkbookReader.h"
#include "database/WorkbookSurvey.h"

#include <QTemporaryDir>
#include <QtTest>

#include "TestFiles.h"

using namespace nubo::database;
using namespace nubo::database::test;
using nubo::core::DetailField;
using nubo::core::DiscField;

namespace {

const QVariantList kFourCaptions = {"NOMBRE", "DIRECCION", "ORIGEN", "FORMATO"};

// A catalogue sheet whose columns after D carry the given captions and, in row 3, the values.
QByteArray catalogueWith(const QVariantList& captions, const QVariantList& values,
                         const QList<std::pair<QString, SheetRows>>& more = {})
{
    const SheetRows rows = {
        kFourCaptions + captions, {}, QVariantList{"a", "b", "c", "d"} + values};
    return compoundFile({{"Workbook", biffSheets(QList{std::pair{QString("Hoja"), rows}} + more)}});
}

// Each detail of a record as text, in column order.
QStringList detailTexts(const nubo::core::FileDetails& details)
{
    return rowTexts({{}, {}, {}, {}, details}).mid(4);
}

// What a year 1980 serial date and a time of day typed in a spreadsheet hold.
constexpr double kFirstOf1980AtNoon = 29221.5;
constexpr double kThreeMinutes45 = 225.0 / 86400;

} // namespace

// The columns after the four stored ones, and the disc records' sheet, as the reader finds
// them in sheets a spreadsheet program changed; what a catalogue writes round-trips in
// tst_WorkbookFile.
class WorkbookReaderTest final : public QObject
{
    Q_OBJECT

private slots:
    // Details are found by their caption wherever they stand; values that are no value of
    // their column are skipped and counted, the four columns always kept.
    void detailColumnsAreFoundByCaption_data()
    {
        QTest::addColumn<QVariantList>("captions");
        QTest::addColumn<QVariantList>("values");
        QTest::addColumn<QStringList>("details"); // TAMAÑO ... DURACION as text
        QTest::addColumn<QStringList>("skipped");
        const QString e;
        QTest::newRow("written order")
            << QVariantList{"TAMAÑO", "FECHA", "TITULO", "ARTISTA", "ALBUM",
                            "AÑO",    "PISTA", "GENERO", "DURACION"}
            << QVariantList{5e12, "2023-11-14 22:13", "T", "A", "Al", "1979", "3", "G", "1:02:03"}
            << QStringList{"5000000000000", "2023-11-14 22:13", "T", "A", "Al", "1979", "3", "G",
                           "1:02:03"}
            << QStringList();
        QTest::newRow("reordered, any case and accents")
            << QVariantList{"duracion", " Año ", "artista", "Tamano"}
            << QVariantList{225.0, 1979.0, "Quiroga", 4294967297.0}
            << QStringList{"4294967297", e, e, "Quiroga", e, "1979", e, e, "3:45"} << QStringList();
        QTest::newRow("deleted, and columns of our own")
            << QVariantList{"NOTAS", "ARTISTA", "ARTISTA"} << QVariantList{"x", "Quiroga", "y"}
            << QStringList{e, e, e, "Quiroga", e, e, e, e, e} << QStringList();
        QTest::newRow("typed over")
            << QVariantList{"TAMAÑO", "FECHA", "AÑO", "PISTA", "DURACION", "TITULO"}
            << QVariantList{"grande", "ayer", "mil", "3/12", "tres", "Tema"}
            << QStringList{e, e, "Tema", e, e, e, "3", e, e}
            << QStringList{"4 (TAMAÑO, FECHA, AÑO, DURACION)"};
        QTest::newRow("numbers in every kind")
            << QVariantList{"FECHA", "DURACION", "PISTA", "TITULO", "TAMAÑO", "AÑO"}
            << QVariantList{kFirstOf1980AtNoon, kThreeMinutes45, 3.5, 1999.0, -5.0, 1e300}
            << QStringList{e, "1980-01-01 12:00", "1999", e, e, e, e, e, "3:45"}
            << QStringList{"3 (PISTA, TAMAÑO, AÑO)"};
        QTest::newRow("blanks, and numbers as captions")
            << QVariantList{"TITULO", 2024.0, "ARTISTA"} << QVariantList{QVariant(), "x"}
            << QStringList(9) << QStringList();
    }
    void detailColumnsAreFoundByCaption()
    {
        QFETCH(QVariantList, captions);
        QFETCH(QVariantList, values);
        QFETCH(QStringList, details);
        QFETCH(QStringList, skipped);
        WorkbookReader reader;
        QVERIFY(reader.read(catalogueWith(captions, values), QStringLiteral("x.xls")));
        SkippedValues seen;
        const CatalogueRecord record = reader.record(3, &seen);
        QCOMPARE((QStringList{record.nombre, record.direccion, record.origen, record.formato}),
                 (QStringList{"a", "b", "c", "d"}));
        QCOMPARE(detailTexts(record.details), details);
        QCOMPARE(seen.count == 0 ? QStringList()
                                 : QStringList{QStringLiteral("%1 (%2)")
                                                   .arg(seen.count)
                                                   .arg(seen.columns.join(QStringLiteral(", ")))},
                 skipped);
    }

    // A catalogue of four columns, as older versions wrote it, loads with its details unknown
    // and hands over no disc records.
    void fourColumnCataloguesLoadAsBefore()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("viejo.xls"));
        QVERIFY(nubo::test::writeFile(path, compoundFile({{"Workbook", sharedStringSheet(3)}})));
        bool discsHanded = false;
        QList<CatalogueRecord> rows;
        const LoadOutcome outcome =
            readWorkbook(path, {{},
                                {},
                                [&](CatalogueRecord&& r) { rows.append(std::move(r)); },
                                [&](QList<nubo::core::DiscRecord>&&) { discsHanded = true; }});
        QVERIFY(outcome.ok && !outcome.damaged);
        QCOMPARE(rows.size(), 3);
        QCOMPARE(rows.at(2).nombre, QStringLiteral("Canción 2.mp3"));
        for (const CatalogueRecord& r : rows)
            QVERIFY(r.details.isEmpty());
        QVERIFY(!discsHanded);
        QCOMPARE(outcome.skipped.count, 0);
    }

    // The disc records' sheet is found by its name in any position, its columns by their
    // captions; records of groups no row has are kept.
    void discsSheetIsReadByName_data()
    {
        QTest::addColumn<QString>("sheetName");
        QTest::addColumn<SheetRows>("sheet");
        QTest::addColumn<QList<QStringList>>("discs");
        QTest::addColumn<QString>("said");
        const QString e;
        QTest::newRow("reordered, after another sheet")
            << "discos"
            << SheetRows{{"NOTAS", "ORIGEN", "CAPACIDAD", "Ubicación", "FECHA", "OTRA"},
                         {},
                         {"prestado", "c", 8e12, "Estante 3", "2020-05-01 10:30", "z"},
                         {},
                         {e, "sin filas", "1 TB", QVariant(), kFirstOf1980AtNoon}}
            << QList<QStringList>{{"c", e, e, e, "8000000000000", e, "2020-05-01 10:30", e, e,
                                   "Estante 3", "prestado"},
                                  {"sin filas", e, e, e, e, e, "1980-01-01 12:00", e, e, e, e}}
            << "El archivo x.xls tiene 1 valor que no se pudo leer y se dejó vacío (columna "
               "CAPACIDAD).";
        QTest::newRow("no group column")
            << "Discos" << SheetRows{{"ETIQUETA"}, {}, {"MUSICA"}, {"OTRO"}} << QList<QStringList>()
            << "El archivo x.xls tiene 2 valores que no se pudieron leer y se dejaron vacíos "
               "(columna Discos).";
    }
    void discsSheetIsReadByName()
    {
        QFETCH(QString, sheetName);
        QFETCH(SheetRows, sheet);
        QFETCH(QList<QStringList>, discs);
        QFETCH(QString, said);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("x.xls"));
        const QByteArray file =
            catalogueWith({}, {}, {{"Hoja2", {{"otra cosa"}}}, {sheetName, sheet}});
        QVERIFY(nubo::test::writeFile(path, file));
        QList<QStringList> seen;
        const LoadOutcome outcome = readWorkbook(
            path,
            {{}, {}, [](CatalogueRecord&&) {}, [&](auto&& records) { seen = textTable(records); }});
        QVERIFY(outcome.ok && !outcome.damaged);
        QCOMPARE(outcome.added, 1);
        QCOMPARE(seen, discs);
        QCOMPARE(skippedText(QStringLiteral("x.xls"), outcome.skipped), said);
    }

    // Our own detail columns and disc sheet are no extras a save would lose; a column or a
    // sheet the user added is, "Discos 2" too beside a catalogue sheet not called "Discos".
    void surveyNamesOnlyWhatTheUserAdded()
    {
        const QByteArray file =
            catalogueWith({"TAMAÑO", "NOTAS", "Artista"}, {1.0, "mía", "Quiroga"},
                          {{"Discos", {{"ORIGEN"}, {}, {"c"}}},
                           {"Discos 2", {{"x"}}},
                           {"Hoja3", {{"x"}}},
                           {"Hoja4", {}}});
        const std::optional<WorkbookExtras> extras = surveyWorkbookBytes(file);
        QVERIFY(extras);
        QCOMPARE(extras->sheets, (QStringList{"Discos 2", "Hoja3"}));
        QCOMPARE(extras->columns.size(), 1);
        QCOMPARE(extras->columns.first().number, 6);
        QCOMPARE(extras->columns.first().caption, QStringLiteral("NOTAS"));
    }

    // A catalogue sheet called "Discos" puts the records in "Discos 2", and both come back.
    void aCatalogueSheetCalledDiscos()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("d.xls"));
        CatalogueSaveOptions options;
        options.sheetName = QStringLiteral("discos");
        options.discs = sampleDiscs();
        QVERIFY(saveCatalogue(path, options, rowsOf(detailedRows(3))).ok);
        const auto loaded = loadCatalogue(path);
        QVERIFY(loaded);
        QCOMPARE(loaded->name, QStringLiteral("discos"));
        QCOMPARE(loaded->discs, options.discs);
        QCOMPARE(loaded->rows, detailedRows(3));
        QVERIFY(surveyWorkbook(path)->isEmpty());
    }

    // The workbook's dates read and write as the list's texts do, summer time included.
    void datesAgreeWithTheListsTexts_data()
    {
        QTest::addColumn<QByteArray>("zone");
        QTest::newRow("UTC") << QByteArray("UTC");
        QTest::newRow("Madrid") << QByteArray("Europe/Madrid");
        QTest::newRow("Buenos Aires") << QByteArray("America/Argentina/Buenos_Aires");
    }
    void datesAgreeWithTheListsTexts()
    {
        QFETCH(QByteArray, zone);
        const QByteArray previous = qgetenv("TZ");
        qputenv("TZ", zone);
        const LocalDateTexts dates;
        for (qint64 at = -2'000'000'000; at < 4'000'000'000; at += 7'777'777) {
            const qint64 minute = at - at % 60;
            QCOMPARE(dates.text(minute), nubo::core::dateText(minute));
            QCOMPARE(dates.fromText(dates.text(minute)),
                     nubo::core::dateFromText(dates.text(minute)));
        }
        QCOMPARE(dates.fromText(QStringLiteral("2024-13-01 10:00")), std::nullopt);
        QCOMPARE(dates.text(nubo::core::FileDetails::kNoDate), QString());
        qputenv("TZ", previous);
    }

    // A workbook with every column and disc records, cut or with bytes overwritten anywhere:
    // each read gives rows or an error, never a crash, and what it gives can be asked for.
    void damagedWorkbooksNeverCrash()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("c.xls"));
        CatalogueSaveOptions options;
        options.discs = sampleDiscs();
        QVERIFY(saveCatalogue(path, options, rowsOf(detailedRows(120))).ok);
        const std::optional<QByteArray> stream =
            compoundFileStream(nubo::test::fileBytes(path), QStringLiteral("Workbook"));
        QVERIFY(stream);
        int read = 0;
        for (qsizetype at = 0; at < stream->size(); at += 61) {
            QByteArray overwritten = *stream;
            overwritten[at] = char(overwritten[at] ^ 0x5A);
            overwritten[(at * 7 + 3) % overwritten.size()] = '\xFF';
            for (const QByteArray& bytes : {stream->left(at), overwritten}) {
                WorkbookReader reader;
                if (!reader.read(bytes, QStringLiteral("c.xls")))
                    continue;
                ++read;
                SkippedValues skipped;
                for (quint32 r = 1; r <= reader.lastRow() + 1; ++r)
                    (void)reader.record(r, &skipped);
                (void)reader.discs(&skipped);
            }
        }
        QVERIFY(read > 0);
    }
};

QTEST_GUILESS_MAIN(WorkbookReaderTest)
#include "tst_WorkbookReader.moc"
