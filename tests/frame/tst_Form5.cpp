// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/ui/Form5.h"

#include <QCheckBox>
#include <QFile>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "TestFiles.h"
#include "WindowControl.h"
#include "core/AppFixture.h"

using nubo::test::control;

using namespace nubo;
using core::Option;

namespace {

// A fresh application folder with the options file and log prepared, and the window.
struct Fixture : AppFixture
{
    std::unique_ptr<frame::Form5> form;

    Fixture()
    {
        store.PrepararCarpetas();
        form = std::make_unique<frame::Form5>(app, options, store, log);
        store.LeerOpciones();
    }
    QString optionsFile() const
    {
        return QString::fromUtf8(
            nubo::test::fileBytes(app.resolve(QStringLiteral("\\ini\\Config.nbo"))));
    }
};

} // namespace

class TestForm5 final : public QObject
{
    Q_OBJECT
private slots:
    // Closing the window without accepting reads the file again: the changes end with it.
    void closingForgetsUnacceptedChanges()
    {
        Fixture f;
        f.form->show();
        control<QCheckBox>(*f.form, "ChkAnim")->click();
        QCOMPARE(f.options.value(Option::PermitirAnims), 0); // in force while open
        f.form->close();
        QCOMPARE(f.options.value(Option::PermitirAnims), 1); // gone with the window
        f.form->show();
        QVERIFY(control<QCheckBox>(*f.form, "ChkAnim")->isChecked());
        control<QCheckBox>(*f.form, "ChkAnim")->click();
        control<QPushButton>(*f.form, "Command1")->click(); // accepted changes stay
        QCOMPARE(f.options.value(Option::PermitirAnims), 0);
        QVERIFY(f.optionsFile().contains(QStringLiteral("PERMITIRANIMS=0")));
    }

    void defaultsThenSaveWriteConfigExcel()
    {
        Fixture f;
        QVERIFY(f.optionsFile().contains(QStringLiteral("CONFIGEXCEL=0")));
        QSignalSpy closed(f.form.get(), &frame::Form5::closed);
        f.form->show();
        control<QCheckBox>(*f.form, "ChkMInstances")->setChecked(true);
        control<QPushButton>(*f.form, "Command2")->click();
        QVERIFY(!f.optionsFile().contains(QStringLiteral("CONFIGEXCEL=1"))); // not saved yet
        QCOMPARE(f.options.value(Option::MInstances), 0);
        control<QPushButton>(*f.form, "Command1")->click();
        QVERIFY(f.optionsFile().contains(QStringLiteral("CONFIGEXCEL=1")));
        QVERIFY(f.optionsFile().contains(QStringLiteral("MINSTANCES=0")));
        QVERIFY(!f.form->isVisible());
        QCOMPARE(closed.size(), 1);
        f.form->show();
        f.form->close(); // the window frame's close steps the face back too
        QCOMPARE(closed.size(), 2);
    }
};

QTEST_MAIN(TestForm5)
#include "tst_Form5.moc"
