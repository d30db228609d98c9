#include "platform/linux/LinuxVolumes.h"

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
        QTest::newRow("not hex") << "WXYZ-1234" << qint64(-1);
    }
    void serialsFromUuids()
    {
        QFETCH(QString, uuid);
        const std::optional<quint32> got = LinuxVolumes::serialFromUuid(uuid);
        QTEST(got ? qint64(*got) : qint64(-1), "serial");
    }
};

QTEST_GUILESS_MAIN(TestLinuxVolumes)
#include "tst_linuxvolumes.moc"
