#include "CatalogueSamples.h"

#include "database/DatabaseReader.h"
#include "database/DatabaseWriter.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

using namespace nubo::database;
using namespace nubo::database::test;

namespace {

bool writeDatabase(const QString& path, const QList<CatalogueRecord>& rows,
                   const CatalogueHeader& header = defaultCatalogueHeader())
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    DatabaseWriter writer;
    if (!writer.begin(&file, header))
        return false;
    for (const CatalogueRecord& r : rows)
        if (!writer.addRow(r))
            return false;
    return writer.finish();
}

QList<CatalogueRecord> readDatabase(const QString& path)
{
    DatabaseReader reader;
    if (!reader.open(path))
        return {};
    QList<CatalogueRecord> rows;
    CatalogueRecord r;
    while (reader.next(r))
        rows.append(r);
    return rows;
}

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

QList<CatalogueRecord> withinBmp(QList<CatalogueRecord> rows)
{
    for (CatalogueRecord& r : rows)
        r.nombre.replace(QStringLiteral("🎵 Tema 𝄞"), QStringLiteral("Tema"));
    return rows;
}

} // namespace

class DatabaseFileTest final : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("empty") << 0;
        QTest::newRow("one") << 1;
        QTest::newRow("thirty thousand") << 30000;
    }
    void roundTrip()
    {
        QFETCH(int, count);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("lista.mdb"));
        const QList<CatalogueRecord> rows = sampleRows(count);
        QVERIFY(writeDatabase(path, rows));
        DatabaseReader reader;
        QVERIFY2(reader.open(path), qPrintable(reader.errorString()));
        QCOMPARE(reader.tableName(), QStringLiteral("Catalogo"));
        QCOMPARE(reader.fieldNames(), (QStringList{"NOMBRE", "DIRECCION", "ORIGEN", "FORMATO"}));
        QCOMPARE(reader.recordCount(), count);
        QCOMPARE(readDatabase(path), rows);
    }

    void mdbtoolsAgree()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("lista.mdb"));
        const QList<CatalogueRecord> rows = withinBmp(sampleRows(2000));
        QVERIFY(writeDatabase(path, rows));
        const auto mdb = [&path](const char* tool, QStringList args = {}) {
            return runTool(QLatin1String(tool), args << path << QStringLiteral("Catalogo")).out;
        };
        if (!runTool(QStringLiteral("mdb-ver"), {path}).ran)
            QSKIP("mdbtools is not installed");
        QCOMPARE(runTool(QStringLiteral("mdb-ver"), {path}).out.trimmed(), QByteArray("JET4"));
        QCOMPARE(runTool(QStringLiteral("mdb-tables"), {"-1", path}).out, QByteArray("Catalogo\n"));
        QCOMPARE(mdb("mdb-count"), QByteArray("2000\n"));
        const QByteArray schema = runTool(QStringLiteral("mdb-schema"), {path}).out;
        for (const char* field : {"NOMBRE", "DIRECCION", "ORIGEN", "FORMATO"})
            QVERIFY(schema.contains(QByteArray("[") + field + "]\t\t\tText (255)"));
        QCOMPARE(mdb("mdb-export"), exportedCsv(rows));
    }

    // The system tables match those of a database the engine itself created.
    void systemTablesMatchTheEngine()
    {
        const QString engine =
            qEnvironmentVariable("NUBO_FIXTURES") + QStringLiteral("/adox_jet4.mdb");
        if (!QFile::exists(engine) || !runTool(QStringLiteral("mdb-ver"), {engine}).ran)
            QSKIP("fixtures or mdbtools are not available");
        QTemporaryDir dir;
        const QString ours = dir.filePath(QStringLiteral("vacia.mdb"));
        QVERIFY(writeDatabase(ours, {}));
        const QStringList system = {"MSysObjects", "MSysACEs", "MSysQueries", "MSysRelationships"};
        QCOMPARE(runTool(QStringLiteral("mdb-tables"), {"-S", "-1", ours}).out,
                 (system.join('\n') + "\nCatalogo\n").toUtf8());
        for (const QString& table : system)
            QCOMPARE(runTool(QStringLiteral("mdb-schema"), {"-T", table, ours}).out,
                     runTool(QStringLiteral("mdb-schema"), {"-T", table, engine}).out);
        // The engine's own rows are all there, plus the new table's.
        QCOMPARE(runTool(QStringLiteral("mdb-count"), {ours, "MSysObjects"}).out,
                 QByteArray("9\n"));
        QCOMPARE(runTool(QStringLiteral("mdb-count"), {ours, "MSysACEs"}).out, QByteArray("18\n"));
    }

    void mdbReaderAgrees()
    {
        // nubo.sh test installs the package under build/npm when npm is there.
        QString modules = qEnvironmentVariable("NUBO_NODE_MODULES");
        if (modules.isEmpty())
            modules =
                qEnvironmentVariable("NUBO_SOURCE_DIR") + QStringLiteral("/build/npm/node_modules");
        if (!QFile::exists(modules + QStringLiteral("/mdb-reader")))
            QSKIP("node and the mdb-reader package are not installed (set NUBO_NODE_MODULES)");
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("lista.mdb"));
        const QList<CatalogueRecord> rows = sampleRows(40000);
        QVERIFY(writeDatabase(path, rows));
        const QString script = QStringLiteral(
            "const M=require(process.argv[1]+'/mdb-reader').default;"
            "const r=new M(require('fs').readFileSync(process.argv[2]));"
            "const t=r.getTable('Catalogo');const d=t.getData();"
            "console.log(JSON.stringify([r.getTableNames(),d.length,d[0],d[d.length-1]]));");
        const ToolResult node = runTool(QStringLiteral("node"), {"-e", script, modules, path});
        QVERIFY2(node.ran && node.status == 0, node.err.constData());
        const QJsonArray seen = QJsonDocument::fromJson(node.out).array();
        QCOMPARE(seen.at(0).toArray(), QJsonArray{QStringLiteral("Catalogo")});
        QCOMPARE(seen.at(1).toInt(), 40000);
        QCOMPARE(seen.at(2).toObject().value("NOMBRE").toString(), rows.first().nombre);
        QCOMPARE(seen.at(3).toObject().value("DIRECCION").toString(), rows.last().direccion);
    }

    void refusesWhatDoesNotFit()
    {
        QBuffer buffer;
        buffer.open(QIODevice::ReadWrite);
        DatabaseWriter writer;
        QVERIFY(writer.begin(&buffer, defaultCatalogueHeader()));
        QVERIFY(writer.addRow({QString(255, QLatin1Char('a')), {}, {}, {}}));
        QVERIFY(!writer.addRow({{}, QString(256, QLatin1Char('a')), {}, {}}));
        QVERIFY(writer.errorString().contains(QStringLiteral("DIRECCION")));
        CatalogueHeader twice = defaultCatalogueHeader();
        twice[3] = QStringLiteral("nombre");
        QVERIFY(!writer.begin(&buffer, twice));
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
        const QString path = qEnvironmentVariable("NUBO_FIXTURES") + QLatin1Char('/') + file;
        if (!QFile::exists(path))
            QSKIP("fixtures are not available");
        DatabaseReader reader;
        QCOMPARE(reader.open(path), !table.isEmpty());
        if (table.isEmpty())
            QVERIFY(reader.errorString().contains(QStringLiteral("ninguna tabla")));
        QCOMPARE(reader.tableName(), table);
        const QList<CatalogueRecord> rows = readDatabase(path);
        QTEST(int(rows.size()), "records");
        QVERIFY(text.isEmpty() || std::any_of(rows.begin(), rows.end(),
                                              [&](const auto& r) { return r.direccion == text; }));
    }
};

QTEST_GUILESS_MAIN(DatabaseFileTest)
#include "tst_DatabaseFile.moc"
