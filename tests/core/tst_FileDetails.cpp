// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/DiscRecord.h"
#include "core/FileDetails.h"

#include <QDateTime>
#include <QTest>

using nubo::core::DetailField;
using nubo::core::DiscField;
using nubo::core::DiscRecord;
using nubo::core::FileDetails;

class TestFileDetails final : public QObject
{
    Q_OBJECT
private slots:
    // What a spreadsheet or a user hands back: each text gives the stored value, or is refused
    // and leaves the field unknown.
    void textsReadBack_data()
    {
        QTest::addColumn<int>("field");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("taken");
        QTest::addColumn<QString>("shown");
        const auto row = [](const char* name, DetailField f, const char* text, bool taken,
                            const char* shown) {
            QTest::newRow(name) << int(f) << QString::fromUtf8(text) << taken
                                << QString::fromUtf8(shown);
        };
        row("size", DetailField::Tamano, "5000000000", true, "5000000000");
        row("size as a spreadsheet number", DetailField::Tamano, "4096.0", true, "4096");
        row("negative size", DetailField::Tamano, "-3", false, "");
        row("size with a fraction", DetailField::Tamano, "1.5", false, "");
        row("date", DetailField::Fecha, "1969-07-20 20:17", true, "1969-07-20 20:17");
        row("ISO date", DetailField::Fecha, "2031-01-02T03:04:00", true, "2031-01-02 03:04");
        row("not a date", DetailField::Fecha, "ayer", false, "");
        row("year", DetailField::Ano, " 1979 ", true, "1979");
        row("year zero", DetailField::Ano, "0", false, "");
        row("track of total", DetailField::Pista, "3/12", true, "3");
        row("track words", DetailField::Pista, "tres", false, "");
        row("minutes", DetailField::Duracion, "3:07", true, "3:07");
        row("hours", DetailField::Duracion, "1:02:03", true, "1:02:03");
        row("seconds", DetailField::Duracion, "3723", true, "1:02:03");
        row("bad seconds", DetailField::Duracion, "3:75", false, "");
        row("blank clears", DetailField::Duracion, "  ", true, "");
        row("any title", DetailField::Titulo, "Corazón\tpartío", true, "Corazón\tpartío");
    }
    void textsReadBack()
    {
        QFETCH(int, field);
        QFETCH(QString, text);
        QFETCH(bool, taken);
        QFETCH(QString, shown);
        FileDetails details;
        details.size = 7;
        details.duration = 7;
        QCOMPARE(details.setText(DetailField(field), text), taken);
        QCOMPARE(details.text(DetailField(field)), shown);
    }

    void discFieldsReadBack()
    {
        DiscRecord disc;
        QVERIFY(disc.setText(DiscField::Capacidad, QStringLiteral("734003200")));
        QVERIFY(!disc.setText(DiscField::Libre, QStringLiteral("mucho")));
        QVERIFY(disc.setText(DiscField::Ubicacion, QStringLiteral("Estante 3, caja azul")));
        QCOMPARE(disc.text(DiscField::Capacidad), QStringLiteral("734003200"));
        QCOMPARE(disc.text(DiscField::Libre), QString());
        QCOMPARE(disc.text(DiscField::Fecha), QString());
        QCOMPARE(disc.ubicacion, QStringLiteral("Estante 3, caja azul"));
        QCOMPARE(nubo::core::serialText(0x1a2b3c4d), QStringLiteral("439041101"));
        QCOMPARE(nubo::core::serialText(0xfffffffe), QStringLiteral("-2"));
    }
};

QTEST_GUILESS_MAIN(TestFileDetails)
#include "tst_FileDetails.moc"
