#include "platform/linux/LinuxVolumes.h"

#include <QTemporaryDir>
#include <QTest>

using nubo::platform::LinuxVolumes;

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
        QTest::newRow("too short") << "AB-12" << qint64(-1);
        QTest::newRow("not hex") << "WXYZ-1234" << qint64(-1);
    }
    void serialsFromUuids()
    {
        QFETCH(QString, uuid);
        const std::optional<quint32> got = LinuxVolumes::serialFromUuid(uuid);
        QTEST(got ? qint64(*got) : qint64(-1), "serial");
    }

    void aFolderHasItsVolumesDetailsAndSpace()
    {
        QTemporaryDir dir;
        const LinuxVolumes volumes;
        const auto details = volumes.details(dir.path());
        QVERIFY(details);
        QVERIFY(!details->fileSystem.isEmpty());
        QVERIFY(details->maxComponentLength >= 12);
        const auto space = volumes.space(dir.path());
        QVERIFY(space && space->totalBytes >= space->freeBytes && space->totalBytes > 0);
        QVERIFY(!volumes.details(dir.path() + "/no/existe"));
        QVERIFY(!volumes.space(QString()));
    }
};

QTEST_GUILESS_MAIN(TestLinuxVolumes)
#include "tst_linuxvolumes.moc"
