// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/ProfileFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"

using nubo::core::ProfileFile;

using nubo::test::fileBytes;

class TestProfileFile final : public QObject
{
    Q_OBJECT
private slots:
    void readsLikeTheProfileCalls()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("c.ini"));
        QVERIFY(nubo::test::writeFile(
            path, "[otra]\nKEY=otra\n[Opciones]\r\n  key = 1 \r\nEMPTY=\nQ=\"quoted\"\nLONG=" +
                      QByteArray(400, 'x') + "\n"));
        const ProfileFile file(path);
        QCOMPARE(file.readString("OPCIONES", "KEY", "Default"), QStringLiteral("1"));
        QCOMPARE(file.readString("OPCIONES", "EMPTY", "Default"), QString());
        QCOMPARE(file.readString("OPCIONES", "MISSING", "Default"), QStringLiteral("Default"));
        QCOMPARE(file.readString("NOSECTION", "KEY", "Default"), QStringLiteral("Default"));
        QCOMPARE(file.readString("OPCIONES", "Q", ""), QStringLiteral("quoted"));
        QCOMPARE(file.readString("OPCIONES", "LONG", "").size(), 254); // the caller's buffer
        QCOMPARE(ProfileFile(dir.filePath("none.ini")).readString("A", "B", "d"),
                 QStringLiteral("d"));
    }

    void writesCreateReplaceAndAppend()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("c.ini"));
        ProfileFile file(path);
        QVERIFY(file.writeString("OPCIONES", "A", "1"));
        QVERIFY(file.writeString("OPCIONES", "B", "0"));
        QVERIFY(file.writeString("opciones", "a", "0"));
        QVERIFY(file.writeString("OTRA", "C", "x"));
        QVERIFY(file.writeString("OPCIONES", "D", "1"));
        QCOMPARE(fileBytes(path),
                 QByteArray("[OPCIONES]\r\na=0\r\nB=0\r\nD=1\r\n[OTRA]\r\nC=x\r\n"));
        ProfileFile missing(dir.filePath(QStringLiteral("ini/Config.nbo")));
        QVERIFY(!missing.writeString("OPCIONES", "A", "1"));
        QVERIFY(!QFile::exists(missing.path()));
    }
};

QTEST_GUILESS_MAIN(TestProfileFile)
#include "tst_ProfileFile.moc"
