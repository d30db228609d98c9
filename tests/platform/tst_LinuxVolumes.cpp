// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxVolumes.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"

using nubo::platform::LinuxVolumes;
using nubo::platform::VolumeDetails;

class TestLinuxVolumes final : public QObject
{
    Q_OBJECT
private slots:
    void serialsFromUuids_data()
    {
        QTest::addColumn<QString>("uuid");
        QTest::addColumn<qint64>("serial");
        QTest::newRow("vfat") << "ABCD-1234" << qint64(0xABCD1234);
        QTest::newRow("ntfs: its low half") << "0123456789ABCDEF" << qint64(0x89ABCDEF);
        QTest::newRow("not hex") << "WXYZ-1234" << qint64(-1);
    }
    void serialsFromUuids()
    {
        QFETCH(QString, uuid);
        const std::optional<quint32> got = LinuxVolumes::serialFromUuid(uuid);
        QTEST(got ? qint64(*got) : qint64(-1), "serial");
    }

    // The volume of a folder comes from the mount table when an entry covers it, and from
    // the folder itself when none does (a chroot lists no mount for its own "/"). A device
    // node is no folder of its volume: it would report the volume /dev lies on.
    void detailsComeFromFoldersOnly_data()
    {
        QTest::addColumn<QByteArray>("mountinfo");
        QTest::addColumn<QString>("fileSystem");
        QTest::newRow("covered by /")
            << QByteArray("22 1 8:1 / / rw - testfs /dev/sda1 rw\n") << "testfs";
        QTest::newRow("no entry covers it")
            << QByteArray("22 1 8:1 / /no/existe rw - testfs /dev/sda1 rw\n") << QString();
    }
    void detailsComeFromFoldersOnly()
    {
        QFETCH(QByteArray, mountinfo);
        QFETCH(QString, fileSystem);
        QTemporaryDir system;
        QVERIFY(nubo::test::writeFile(system.filePath("proc/self/mountinfo"), mountinfo));
        const LinuxVolumes volumes(system.path());
        const std::optional<VolumeDetails> details = volumes.details(QDir::tempPath());
        QVERIFY(details);
        if (!fileSystem.isEmpty())
            QCOMPARE(details->fileSystem, fileSystem);
        else
            QCOMPARE(details->serial, 0u);
        QVERIFY(details->label.isEmpty());
        QVERIFY(details->maxComponentLength > 0);
        QVERIFY(!volumes.details(QStringLiteral("/dev/null")));
        QVERIFY(!volumes.details(QStringLiteral("/no/existe/nunca")));
    }

    void fileSystemNames_data()
    {
        QTest::addColumn<quint64>("magic");
        QTest::addColumn<QString>("name");
        QTest::newRow("ext2, ext3 and ext4 share one") << quint64(0xEF53) << "ext4";
        QTest::newRow("a data disc") << quint64(0x9660) << "iso9660";
        QTest::newRow("unknown") << quint64(0x1234) << QString();
    }
    void fileSystemNames()
    {
        QFETCH(quint64, magic);
        QTEST(LinuxVolumes::fileSystemOfMagic(magic), "name");
    }
};

QTEST_GUILESS_MAIN(TestLinuxVolumes)
#include "tst_LinuxVolumes.moc"
