// SPDX-License-Identifier: GPL-3.0-or-later
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

    // Lines are written with the option on only, and lost quietly without their folder; the
    // file's leading blanks go at the next line; emptying ignores the option.
    void appendsAndEmpties()
    {
        QTemporaryDir dir;
        bool enabled = true;
        ActivityLog log(AppFolder(dir.path()), [&] { return enabled; });
        log.AnotarEnLog(QStringLiteral("perdida"));
        QVERIFY(QDir(dir.path()).isEmpty());
        const QString path = dir.filePath(QStringLiteral("Log/nubo.log"));
        QVERIFY(nubo::test::writeFile(path, "antes"));
        enabled = false;
        log.AnotarEnLog(QStringLiteral("ignorada"));
        QCOMPARE(fileBytes(path), QByteArray("antes"));

        enabled = true;
        log.VaciarLog();
        QCOMPARE(QFileInfo(path).size(), 0);
        log.AnotarEnLog(QStringLiteral("   primera"));
        QVERIFY(fileBytes(path).startsWith("   primera "));
        log.AnotarEnLog(QStringLiteral("segunda"));
        const QList<QByteArray> lines = fileBytes(path).split('\n');
        QCOMPARE(lines.size(), 3);
        QVERIFY(lines[0].startsWith("primera ") && lines[0].endsWith('\r'));
        QVERIFY(lines[1].startsWith("segunda "));

        enabled = false;
        log.VaciarLog();
        QCOMPARE(QFileInfo(path).size(), 0);
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
#include "tst_ActivityLog.moc"
