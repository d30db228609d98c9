// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/DriveSpace.h"

#include <QTest>

using nubo::search::driveSpaceCaptions;

class TestDriveSpace final : public QObject
{
    Q_OBJECT
private slots:
    void captions_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<quint64>("total");
        QTest::addColumn<quint64>("free");
        QTest::addColumn<QString>("totalText");
        QTest::addColumn<QString>("freeText");
        const quint64 mb = 1048576;
        QTest::newRow("nothing known") << "es_ES" << quint64(0) << quint64(0) << "0 Mbytes (0) Gb"
                                       << "0 Mbytes (0) Gb";
        // 40 GB: the total is whole, its gigabytes have at most two decimals.
        QTest::newRow("40 GB disk, Spanish")
            << "es_ES" << quint64(40000000000) << quint64(12345678901) << "38147 Mbytes (37,25) Gb"
            << "11773,76 Mbytes (11,5) Gb";
        QTest::newRow("40 GB disk, English")
            << "en_US" << quint64(40000000000) << quint64(12345678901) << "38147 Mbytes (37.25) Gb"
            << "11773.76 Mbytes (11.5) Gb";
        QTest::newRow("total rounds half to even")
            << "es_ES" << 2 * mb + mb / 2 << quint64(0) << "2 Mbytes (0) Gb"
            << "0 Mbytes (0) Gb";
    }
    void captions()
    {
        QFETCH(QString, locale);
        QFETCH(quint64, total);
        QFETCH(quint64, free);
        const auto captions = driveSpaceCaptions(total, free, QLocale(locale));
        QTEST(captions.total, "totalText");
        QTEST(captions.free, "freeText");
    }
};

QTEST_GUILESS_MAIN(TestDriveSpace)
#include "tst_DriveSpace.moc"
