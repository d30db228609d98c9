// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/RegistryFile.h"

#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"

using nubo::platform::RegistryFile;

namespace {
const QString kKey = QStringLiteral("HKEY_LOCAL_MACHINE\\Software\\Nubo15");
}

class TestRegistryFile final : public QObject
{
    Q_OBJECT
private slots:
    void writesTheExportTextForm()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("nubo/registry.reg"));
        RegistryFile store(path);
        QVERIFY(!store.setStringValue(kKey, QStringLiteral("x"), QStringLiteral("y")));
        QVERIFY(store.createKey(kKey));
        QVERIFY(store.setBinaryValue(kKey, QStringLiteral("Hwnd"), QByteArray("1312")));
        QVERIFY(store.setBinaryValue(kKey, QStringLiteral("Minstances"), QByteArray(1, '\0')));
        QVERIFY(store.setStringValue(kKey, QStringLiteral("InstalationPath"),
                                     QStringLiteral("/home/ana/nubo \"x\"\\nubo")));
        const QByteArray text = nubo::test::fileBytes(path);
        QVERIFY(text.contains("[HKEY_LOCAL_MACHINE\\Software\\Nubo15]\n"
                              "\"Hwnd\"=hex:31,33,31,32\n"
                              "\"Minstances\"=hex:00\n"
                              "\"InstalationPath\"=\"/home/ana/nubo \\\"x\\\"\\\\nubo\"\n"));
        // Read back by a fresh store: the file is the only state.
        RegistryFile again(path);
        QVERIFY(again.keyExists(kKey));
        QCOMPARE(again.rawValue(kKey, QStringLiteral("hwnd")), QStringLiteral("hex:31,33,31,32"));
    }

    void unwritableFolderFailsCreation()
    {
        QTemporaryDir dir;
        // a file where the folder should be
        QVERIFY(nubo::test::writeFile(dir.filePath(QStringLiteral("nubo"))));
        RegistryFile store(dir.filePath(QStringLiteral("nubo/registry.reg")));
        QVERIFY(!store.createKey(kKey));
        QVERIFY(!store.keyExists(kKey));
    }
};

QTEST_GUILESS_MAIN(TestRegistryFile)
#include "tst_RegistryFile.moc"
