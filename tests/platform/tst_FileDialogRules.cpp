// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileDialogRules.h"

#include <QTest>

using namespace nubo::platform;

class TestFileDialogRules final : public QObject
{
    Q_OBJECT
private slots:
    void filtersMatchAnyCase()
    {
        const QString filters =
            qtNameFilters(QStringLiteral("Todos (*.xls:*.mdb)|*.xls;*.mdb|Excel (*.xls)|*.xls"));
        QCOMPARE(filters, QStringLiteral("Todos (*.xls:*.mdb) (*.[xX][lL][sS] *.[mM][dD][bB]);;"
                                         "Excel (*.xls) (*.[xX][lL][sS])"));
    }

    void driveRootsMeanTheLastFolderOrHome_data()
    {
        QTest::addColumn<QString>("requested");
        QTest::addColumn<QString>("last");
        QTest::addColumn<QString>("expected");
        const char* const rows[][4] = {
            {"c: first time", "c:", "", "/home/ana"},
            {"c:\\ after a dialog", "C:\\", "/tmp/discos", "/tmp/discos"},
            {"no folder after a dialog", "", "/tmp/discos", "/tmp/discos"},
            {"a file's path", "/tmp/a.mdb", "/tmp/discos", "/tmp/a.mdb"}};
        for (const auto& r : rows)
            QTest::newRow(r[0]) << QString(r[1]) << QString(r[2]) << QString(r[3]);
    }
    void driveRootsMeanTheLastFolderOrHome()
    {
        QFETCH(QString, requested);
        QFETCH(QString, last);
        QTEST(dialogStartPath(requested, last, QStringLiteral("/home/ana")), "expected");
    }
};

QTEST_GUILESS_MAIN(TestFileDialogRules)
#include "tst_FileDialogRules.moc"
