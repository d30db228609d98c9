// SPDX-License-Identifier: GPL-3.0-or-later
#include "CatalogueSamples.h"

#include "database/CatalogueFiles.h"
#include "database/DatabaseReader.h"

#include <QTemporaryDir>
#include <QtTest>

#include "Oracle.h"

using namespace nubo::database;
using namespace nubo::database::test;
using nubo::Outcome;

namespace {

// mdb-export's CSV of rows that mdbtools can show (it drops characters beyond the BMP).
QByteArray exportedCsv(const QList<CatalogueRecord>& rows)
{
    QByteArray csv = "NOMBRE,DIRECCION,ORIGEN,FORMATO\n";
    for (const CatalogueRecord& r : rows) {
        QStringList fields;
        for (int i = 0; i < 4; ++i)
            fields << (r.field(i).isEmpty() ? QString()
                                            : QLatin1Char('"') + r.field(i) + QLatin1Char('"'));
        csv += fields.join(QLatin1Char(',')).toUtf8() + '\n';
    }
    return csv;
}

} // namespace

class DatabaseFileTest final : public QObject
{
    Q_OBJECT

private slots:
    // The written table as mdbtools sees it: its version, table, fields and every row; the
    // reader's own round trip is tested with the other format's in tst_CatalogueFiles.
    void writtenTableReadsElsewhere()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("lista.mdb"));
        QList<CatalogueRecord> rows = sampleRows(2000);
        for (CatalogueRecord& r : rows)
            r.nombre.replace(QStringLiteral("🎵 Tema 𝄞"), QStringLiteral("Tema"));
        QVERIFY(saveCatalogue(path, {}, rowsOf(rows)).ok);
        const nubo::test::OracleRun version =
            nubo::test::runOracle(QStringLiteral("mdb-ver"), {path});
        NUBO_READ(version);
        QCOMPARE(version.out.trimmed(), QByteArray("JET4"));
        const nubo::test::OracleRun exported =
            nubo::test::runOracle(QStringLiteral("mdb-export"), {path, QStringLiteral("Catalogo")});
        NUBO_READ(exported);
        QCOMPARE(exported.out, exportedCsv(rows));
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

QTEST_GUILESS_MAIN(DatabaseFileTest)
#include "tst_DatabaseFile.moc"
