// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ActivityLog.h"
#include "core/OptionsStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"
#include "core/AppFixture.h"

using namespace nubo::core;
using nubo::platform::AppFolder;

namespace {

const QByteArray kDefaultsFile =
    "[OPCIONES]\r\nDBLCLKEXECUTE=1\r\nPERMITIRANIMS=1\r\nESCRIBIRLOG=1\r\n"
    "CONFIGEXCEL=0\r\nMOSTARPRO=1\r\nMINSTANCES=0\r\n";

// An application folder with its options store, log and record.
struct Fixture : AppFixture
{
    QString ini() const { return dir.filePath(QStringLiteral("Ini/Config.nbo")); }
    QByteArray iniBytes() const { return nubo::test::fileBytes(ini()); }
    void writeIni(const QByteArray& bytes) { QVERIFY(nubo::test::writeFile(ini(), bytes)); }
};

// The six options in their file order.
QList<int> values(const Options& options)
{
    QList<int> out;
    for (const Option o : Options::all)
        out.append(options.value(o));
    return out;
}

} // namespace

class TestOptionsStore final : public QObject
{
    Q_OBJECT
private slots:
    void firstStartMissesMostrarproAndKeepsInitialValues()
    {
        Fixture f;
        f.store.PrepararCarpetas();
        QCOMPARE(f.iniBytes(), kDefaultsFile);
        QVERIFY(QFile::exists(f.dir.filePath(QStringLiteral("Log/nubo.log"))));
        f.store.LeerOpciones();
        // "MOSTRARPRO" is missing from a defaults file: the read stops before the last two.
        QCOMPARE(values(f.options), (QList<int>{1, 1, 1, 0, 0, 0}));
        QCOMPARE(f.iniBytes(), kDefaultsFile);
    }

    void savedFileReadsCleanly()
    {
        Fixture f;
        f.store.PrepararCarpetas();
        for (const Option o : Options::all)
            f.options.setValue(o, 1);
        f.store.GuardarOpciones();
        QVERIFY(f.iniBytes().contains("MOSTRARPRO=1\r\nMINSTANCES=1\r\n"));
        Options fresh;
        OptionsStore(f.app, fresh, f.log).LeerOpciones();
        QCOMPARE(values(fresh), QList<int>(6, 1));
    }

    // An empty value leaves its field and the file; any other text than 1 or 0 stops the read
    // (fields not reached keep their values) and writes the defaults file.
    void valuesOtherThanOneOrZero_data()
    {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QList<int>>("read");
        QTest::addColumn<bool>("reset");
        QTest::newRow("empty") << QByteArray() << QList<int>{0, 1, 0, 1, 0, 1} << false;
        QTest::newRow("two") << QByteArray("2") << QList<int>{0, 1, 1, 1, 1, 1} << true;
    }
    void valuesOtherThanOneOrZero()
    {
        QFETCH(QByteArray, value);
        QFETCH(bool, reset);
        Fixture f;
        const QByteArray text =
            "[OPCIONES]\r\nDBLCLKEXECUTE=0\r\nPERMITIRANIMS=" + value +
            "\r\nESCRIBIRLOG=0\r\nCONFIGEXCEL=1\r\nMOSTRARPRO=0\r\nMINSTANCES=1\r\n";
        f.writeIni(text);
        for (const Option o : Options::all)
            f.options.setValue(o, 1);
        f.store.LeerOpciones();
        QTEST(values(f.options), "read");
        QCOMPARE(f.iniBytes(), reset ? kDefaultsFile : text);
    }

    void failedSaveIsLoggedOnly()
    {
        Fixture f;
        QDir(f.dir.path()).mkpath(QStringLiteral("Log"));
        f.options.setValue(Option::EscribirLog, 1);
        f.store.GuardarOpciones(); // no Ini folder: the first write fails
        QVERIFY(nubo::test::fileBytes(f.dir.filePath(QStringLiteral("Log/nubo.log")))
                    .startsWith(
                        "No se ha podido guardar correctamente la configuracion de opciones!!! "));
        QCOMPARE(f.options.value(Option::EscribirLog), 1);
    }
};

QTEST_GUILESS_MAIN(TestOptionsStore)
#include "tst_OptionsStore.moc"
