// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestFiles.h"
#include "WindowServices.h"
#include "search/ui/Form3.h"
#include "search/ui/SearchWindows.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "WindowControl.h"

using nubo::test::control;

using namespace nubo;

class TestForm3 final : public QObject
{
    Q_OBJECT

    struct Rig : test::WindowServices
    {
        test::FakeSearchHost host;
        search::SearchWindows windows{{app, host, dialogs, drives, volumes, reader, tray}};
        search::Form3* form = &windows.form3;

        explicit Rig(const QString& extraDrive = {}) : test::WindowServices(extraDrive)
        {
            test::writeFile(root.path() + "/musica/tema.mp3");
            test::writeFile(root.path() + "/otra.mp3");
            dialogs.inputAnswers.enqueue(QStringLiteral("Grupo"));
        }
    };

private slots:
    // The first opening shows the user's home folder, on the drive that holds it.
    void opensOnTheHomeFolder()
    {
        QTemporaryDir disk;
        const QString home = disk.path() + QStringLiteral("/casa");
        QVERIFY(QDir().mkpath(home));
        const QByteArray savedHome = qgetenv("HOME");
        qputenv("HOME", home.toUtf8());
        Rig rig(disk.path());
        qputenv("HOME", savedHome);
        QCOMPARE(rig.form->currentDriveText(), disk.path());
        QCOMPARE(rig.form->folderPath(), home);
    }

    void controlKeysPressTheButtons()
    {
        Rig rig;
        search::Form3& f = *rig.form;
        f.show();
        QTest::keyClick(control<QComboBox>(f, "Drive1"), Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(rig.dialogs.asked.last().text,
                 QStringLiteral("No hay unidades de CDROM instaladas"));
        QTest::keyClick(control<QTreeView>(f, "Dir1"), Qt::Key_V, Qt::ControlModifier);
        QVERIFY(rig.host.listShown);
        QVERIFY(!f.isVisible());
        QTest::keyClick(control<QTreeView>(f, "Dir1"), Qt::Key_B, Qt::ControlModifier);
        QCOMPARE(rig.host.rows.size(), 2);
    }

    // The window opens on the one fixed drive's folder with the first mask; a drive without a
    // medium cannot be chosen.
    void drivesAndTheFirstMask()
    {
        Rig rig;
        QCOMPARE(control<QComboBox>(*rig.form, "Combo1")->currentText(), QStringLiteral("*.mp3"));
        QCOMPARE(rig.form->folderPath(), rig.root.path());
        QVERIFY(!control<QLabel>(*rig.form, "PicSearch")->pixmap().isNull());
        rig.drives.addEmptyCd("/dev/sr7");
        QCOMPARE(rig.form->selectDrive("/dev/sr7"), 68);
        QCOMPARE(rig.form->selectDrive("z:"), 68);
        QCOMPARE(rig.form->selectDrive(rig.root.path()), 0);
        QCOMPARE(control<QComboBox>(*rig.form, "Drive1")->count(), 2);
    }
};

QTEST_MAIN(TestForm3)
#include "tst_Form3.moc"
