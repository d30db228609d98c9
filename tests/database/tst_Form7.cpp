// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/ui/Form7.h"
#include "frame/ui/Form5.h"
#include "platform/fakes/FakeDialogs.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <array>

#include "TestFiles.h"
#include "WindowControl.h"
#include "core/AppFixture.h"

using nubo::test::control;

using namespace nubo;
using database::Form7;
using database::SheetSettings;

namespace {

// A prepared application folder, the sheet settings record and its window.
struct Fixture : AppFixture
{
    SheetSettings settings;
    database::SheetSettingsStore sheetStore{app};
    platform::FakeDialogs dialogs;
    std::unique_ptr<Form7> form;

    Fixture()
    {
        store.PrepararCarpetas();
        store.LeerOpciones();
        open();
    }
    void open()
    {
        form =
            std::make_unique<Form7>(Form7::Deps{app, settings, sheetStore, dialogs, options, log});
    }
};

QColor base(const QLineEdit* field)
{
    return field->palette().color(QPalette::Base);
}

} // namespace

class Form7Test final : public QObject
{
    Q_OBJECT

private slots:
    // Field, button, text before the click and after it.
    void steppersStayWithinTheirLimits_data()
    {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        const std::array<std::array<const char*, 5>, 5> rows{{
            {"style up at 13", "TxtBorStyle", "Command5", "13", "13"},
            {"style down", "TxtBorStyle", "Command6", "1", "0"},
            {"weight down at 1", "TxtBorWidth", "Command7", "1", "1"},
            {"weight up at 4", "TxtBorWidth", "Command8", "4", "4"},
            {"empty weight up", "TxtBorWidth", "Command8", "", "1"},
        }};
        for (const auto& r : rows)
            QTest::newRow(r[0]) << QString(r[1]) << QString(r[2]) << QString(r[3]) << QString(r[4]);
    }
    void steppersStayWithinTheirLimits()
    {
        QFETCH(QString, field);
        QFETCH(QString, button);
        QFETCH(QString, before);
        QFETCH(QString, after);
        Fixture f;
        auto* edit = f.form->findChild<QLineEdit*>(field);
        edit->setText(before);
        f.form->findChild<QPushButton*>(button)->click();
        QCOMPARE(edit->text(), after);
        const int recorded = edit == control<QLineEdit>(*f.form, "TxtBorStyle")
                                 ? f.settings.style.lineStyle
                                 : f.settings.style.weight;
        QCOMPARE(recorded, after.toInt());
    }

    // Letters typed in either field become "0"; the weight's do not touch the line style. An
    // emptied line style turns into "0"; an emptied weight stays empty and keeps its number.
    void lettersAndEmptyFields()
    {
        Fixture f;
        for (QLineEdit* edit : {control<QLineEdit>(*f.form, "TxtBorWidth"),
                                control<QLineEdit>(*f.form, "TxtBorStyle")}) {
            QCOMPARE(f.settings.style.lineStyle, database::excel::kContinuous);
            edit->selectAll();
            QTest::keyClicks(edit, QStringLiteral("ab"));
            QCOMPARE(edit->text(), QStringLiteral("0"));
        }
        QCOMPARE(f.settings.style.lineStyle, 0);
        control<QLineEdit>(*f.form, "TxtBorWidth")->setText(QStringLiteral("3"));
        control<QLineEdit>(*f.form, "TxtBorStyle")->clear();
        control<QLineEdit>(*f.form, "TxtBorWidth")->clear();
        QCOMPARE(control<QLineEdit>(*f.form, "TxtBorStyle")->text(), QStringLiteral("0"));
        QCOMPARE(control<QLineEdit>(*f.form, "TxtBorWidth")->text(), QString());
        QCOMPARE(f.settings.style.weight, 3);
    }

    // Cancelled dialogs change nothing; chosen colours and font show and reach the record.
    void coloursAndFont()
    {
        Fixture f;
        const auto clickAll = [&f] {
            for (QPushButton* button : {control<QPushButton>(*f.form, "Command1"),
                                        control<QPushButton>(*f.form, "Command2"),
                                        control<QPushButton>(*f.form, "Command3")})
                button->click();
        };
        clickAll();
        QCOMPARE(f.dialogs.asked.at(2).kind, QStringLiteral("font"));
        QCOMPARE(f.settings, SheetSettings{});
        QCOMPARE(base(control<QLineEdit>(*f.form, "TxtColorborder")), QColor(Qt::black));
        f.dialogs.colorAnswers << 0xC00001 << 0x12AB34;
        f.dialogs.fontAnswers.enqueue({QStringLiteral("DejaVu Serif"), 14, true, true, true, 0xFE});
        clickAll();
        const database::SheetStyle& s = f.settings.style;
        QCOMPARE(s.borderColor, 0xC00001u);
        QCOMPARE(s.fillColor, 0x12AB34u);
        QCOMPARE(base(control<QLineEdit>(*f.form, "TxtColorborder")), QColor(0xC0, 0, 1));
        QCOMPARE(base(control<QLineEdit>(*f.form, "TxtcolorRelleno")), QColor(0x12, 0xAB, 0x34));
        QCOMPARE(s.fontName, QStringLiteral("DejaVu Serif"));
        QVERIFY(s.bold && s.italic && s.underline);
        QCOMPARE(s.fontColor, 0xFEu);
        QCOMPARE(control<QLineEdit>(*f.form, "Text1")->font().pointSizeF(), 14.0);
        QVERIFY(control<QLineEdit>(*f.form, "Text1")->font().underline());
        QCOMPARE(control<QLineEdit>(*f.form, "Text1")->palette().color(QPalette::Text),
                 QColor(0, 0, 0xFE));
    }

    // Both boxes show the sheet-formatting option. A click on ChkActivate writes nothing: an
    // options change not accepted in the options window stays out of the file too.
    void checkBoxesInStep()
    {
        Fixture f;
        frame::Form5 options(f.app, f.options, f.store, f.log);
        const QByteArray stored = test::fileBytes(f.store.profile().path());
        QVERIFY(stored.contains("ESCRIBIRLOG=1"));
        control<QCheckBox>(options, "ChkErrorLog")->click();
        QVERIFY(!control<QCheckBox>(*f.form, "ChkActivate")->isChecked());
        control<QCheckBox>(*f.form, "ChkActivate")->click();
        QVERIFY(control<QCheckBox>(options, "ChkExcConfg")->isChecked());
        QCOMPARE(test::fileBytes(f.store.profile().path()), stored);
        control<QCheckBox>(options, "ChkExcConfg")->click();
        QVERIFY(!control<QCheckBox>(*f.form, "ChkActivate")->isChecked());
        // the defaults button ticks the options window's box
        control<QPushButton>(options, "Command2")->click();
        QVERIFY(control<QCheckBox>(*f.form, "ChkActivate")->isChecked());
    }

    // "&Aceptar" and PicAceptar keep the settings for the next window; refresh() shows a
    // record changed elsewhere.
    void acceptKeepsTheSettings_data()
    {
        QTest::addColumn<bool>("picture");
        QTest::newRow("Command4") << false;
        QTest::newRow("PicAceptar") << true;
    }
    void acceptKeepsTheSettings()
    {
        QFETCH(bool, picture);
        Fixture f;
        f.form->show();
        control<QLineEdit>(*f.form, "TxtNameXls")->setText(QStringLiteral("Discos"));
        f.dialogs.colorAnswers << 0x123456;
        control<QPushButton>(*f.form, "Command2")->click();
        control<QPushButton>(*f.form, "Command5")->click();
        if (picture)
            QTest::mouseClick(control<QLabel>(*f.form, "PicAceptar"), Qt::LeftButton);
        else
            control<QPushButton>(*f.form, "Command4")->click();
        QVERIFY(!f.form->isVisible());
        const SheetSettings kept = f.settings;
        f.settings = {};
        f.open();
        QCOMPARE(f.settings, kept);
        QCOMPARE(control<QLineEdit>(*f.form, "TxtNameXls")->text(), QStringLiteral("Discos"));
        QCOMPARE(control<QLineEdit>(*f.form, "TxtBorStyle")->text(), QStringLiteral("2"));
        f.settings.sheetName = QStringLiteral("Cargada");
        f.form->refresh();
        QCOMPARE(control<QLineEdit>(*f.form, "TxtNameXls")->text(), QStringLiteral("Cargada"));
    }
};

QTEST_MAIN(Form7Test)
#include "tst_Form7.moc"
