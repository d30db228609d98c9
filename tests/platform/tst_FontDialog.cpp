// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/FontDialog.h"

#include <QFontDatabase>
#include <QtTest>

using nubo::platform::FontChoice;
using nubo::platform::FontDialog;

class FontDialogTest final : public QObject
{
    Q_OBJECT

private slots:
    // Accepted as opened, the dialog gives back what it was given, even a face this machine
    // lacks (the dialog shows its substitute).
    void givesBackWhatItShows_data()
    {
        QTest::addColumn<QString>("face");
        QTest::newRow("missing face") << "Cara Inexistente";
        QTest::newRow("installed face") << QFontDatabase::families().value(0);
    }
    void givesBackWhatItShows()
    {
        QFETCH(QString, face);
        const FontChoice initial{face, 14, true, true, true, 0x12AB34};
        QCOMPARE(FontDialog(initial).choice(), initial);
    }
};

QTEST_MAIN(FontDialogTest)
#include "tst_FontDialog.moc"
