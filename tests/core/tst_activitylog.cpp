#include "core/ActivityLog.h"
#include "core/RawFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"

using namespace nubo::core;
using nubo::platform::AppFolder;

using nubo::test::fileBytes;

class TestActivityLog final : public QObject
{
    Q_OBJECT
private slots:
    // The message, then the locale's long time without a time-zone name, then its short date.
    void lineUnderAFixedLocale_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("line");
        QTest::newRow("es_ES") << QLocale(QStringLiteral("es_ES")) << "Hola 22:15:03 16/11/26\r\n";
        QTest::newRow("C") << QLocale::c() << "Hola 22:15:03 16 Nov 2026\r\n";
    }

    void lineUnderAFixedLocale()
    {
        QFETCH(QLocale, locale);
        const QDateTime when(QDate(2026, 11, 16), QTime(22, 15, 3));
        QTEST(ActivityLog::formatLine(QStringLiteral("Hola"), when, locale), "line");
    }

    void appendsAndEmpties()
    {
        QTemporaryDir dir;
        QDir(dir.path()).mkpath(QStringLiteral("Log"));
        const AppFolder app(dir.path());
        bool enabled = false;
        ActivityLog log(app, [&] { return enabled; });
        const QString path = dir.filePath(QStringLiteral("Log/nubo.log"));
        QVERIFY(nubo::test::writeFile(path, "antes"));
        log.AnotarEnLog(QStringLiteral("ignorada"));
        QCOMPARE(fileBytes(path), QByteArray("antes"));

        enabled = true;
        log.VaciarLog();
        QCOMPARE(QFileInfo(path).size(), 0);
        log.AnotarEnLog(QStringLiteral("primera"));
        log.AnotarEnLog(QStringLiteral("segunda"));
        const QList<QByteArray> lines = fileBytes(path).split('\n');
        QCOMPARE(lines.size(), 3);
        QVERIFY(lines[0].startsWith("primera ") && lines[0].endsWith('\r'));
        QVERIFY(lines[1].startsWith("segunda "));

        enabled = false;
        log.VaciarLog(); // empties whatever the option says
        QCOMPARE(QFileInfo(path).size(), 0);
    }

    // The file's leading blanks go at the next line; without its folder a line is lost quietly.
    void leadingBlanksAndAMissingFolder()
    {
        QTemporaryDir dir;
        ActivityLog log(AppFolder(dir.path()), [] { return true; });
        log.AnotarEnLog(QStringLiteral("perdida"));
        QVERIFY(QDir(dir.path()).isEmpty());
        QDir(dir.path()).mkpath(QStringLiteral("Log"));
        const QString path = dir.filePath(QStringLiteral("Log/nubo.log"));
        log.AnotarEnLog(QStringLiteral("   sangrado"));
        QVERIFY(fileBytes(path).startsWith("   sangrado "));
        log.AnotarEnLog(QStringLiteral("otra"));
        QVERIFY(fileBytes(path).startsWith("sangrado "));
    }

    void writeNeverTruncatesReadCutsAtZero()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("f.txt"));
        QVERIFY(EscribirArchivo(path, QStringLiteral("abcdef"), false));
        QVERIFY(EscribirArchivo(path, QStringLiteral("XY"), false));
        QCOMPARE(fileBytes(path), QByteArray("XYcdef"));
        QVERIFY(!EscribirArchivo(path, QStringLiteral("zz"), true));
        QCOMPARE(fileBytes(path), QByteArray("XYcdef"));
        QVERIFY(!EscribirArchivo(dir.filePath(QStringLiteral("no/f.txt")), "a", false));
        // A read cuts at the first zero and gives nothing for an empty or missing file.
        QVERIFY(nubo::test::writeFile(path, QByteArray("ab\0cd", 5)));
        QCOMPARE(LeerArchivo(path), QStringLiteral("ab"));
        QVERIFY(nubo::test::writeFile(path, QByteArray()));
        QCOMPARE(LeerArchivo(path), QString());
        QCOMPARE(LeerArchivo(dir.filePath(QStringLiteral("missing"))), QString());
        QCOMPARE(BytesATexto(QByteArray("ñandú")), QStringLiteral("ñandú"));
    }
};

QTEST_GUILESS_MAIN(TestActivityLog)
#include "tst_activitylog.moc"
