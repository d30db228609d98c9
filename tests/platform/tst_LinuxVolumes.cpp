// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/LinuxVolumes.h"

#include <QDir>
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

    // A device node is no folder of its volume: it would report the volume /dev lies on.
    void detailsComeFromFoldersOnly()
    {
        const LinuxVolumes volumes;
        QVERIFY(volumes.details(QDir::tempPath()));
        QVERIFY(!volumes.details(QStringLiteral("/dev/null")));
        QVERIFY(!volumes.details(QStringLiteral("/no/existe/nunca")));
    }
};

QTEST_GUILESS_MAIN(TestLinuxVolumes)
#include "tst_LinuxVolumes.moc"
