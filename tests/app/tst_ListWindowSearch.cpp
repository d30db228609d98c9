// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestFiles.h"
#include "WindowControl.h"
#include "app/ListWindowSearch.h"
#include "catalogue/ui/CatalogueView.h"
#include "catalogue/ui/ListWindow.h"
#include "core/Options.h"
#include "platform/fakes/FakeShell.h"
#include "search/WindowServices.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <optional>

using namespace nubo;
using test::control;

// The search run into the real list window, as the program puts them together.
class TestListWindowSearch final : public QObject
{
    Q_OBJECT

    struct Rig : test::WindowServices
    {
        platform::FakeShell shell;
        core::Options options;
        catalogue::ListWindow list{{app, drives, dialogs, shell, options}};
        app::ListWindowSearch joined{list, {app, dialogs, drives, volumes, reader, tray}};
        search::SearchWindows& search = joined.windows();

        Rig()
        {
            for (int i = 0; i < 3; ++i)
                test::writeFile(root.path() + QStringLiteral("/d%1/t%1.mp3").arg(i));
            test::writeFile(root.path() + "/otro.wav");
            search.engine.walker().setEventInterval({});
            search.form3.selectDrive(root.path());
        }
        QString caption() const { return list.form.windowTitle(); }
    };

private slots:
    // A search started while a catalogue save or load has the list adds nothing and says why.
    void aSearchIsRefusedWhileTheListIsBusy()
    {
        Rig rig;
        rig.list.catalogue.setBusy(true);
        rig.dialogs.inputAnswers.enqueue(QStringLiteral("Rock"));
        rig.search.controller.Command1Click();
        QCOMPARE(rig.list.catalogue.list().count(), 0);
        QVERIFY(control<QLabel>(rig.list.form, "LblInfo")->text().startsWith("Espere"));
    }

    // Until an answer counts, the box keeps the volume's name that the question offered; a
    // search that goes on fills the rows, the box, the volume's details and the count line.
    void aSearchFillsTheListWindow()
    {
        Rig rig;
        rig.volumes.detailsByPath.insert(rig.root.path(),
                                         {"DISCO", 0x80000001u, 255, 0x401, "ext4"});
        const auto* box = control<QLineEdit>(rig.list.form, "txtvolumename");
        for (const std::optional<QString>& answer :
             {std::optional<QString>(), {QStringLiteral(" ")}}) {
            rig.dialogs.inputAnswers.enqueue(answer);
            rig.dialogs.messageAnswers.enqueue(platform::MessageAnswer::Yes); // cancel the search
            rig.search.controller.Command1Click();
            const auto& question = rig.dialogs.asked.at(rig.dialogs.asked.size() - 2);
            QCOMPARE(question.defaultText, QStringLiteral("DISCO"));
            QCOMPARE(box->text(), QStringLiteral("DISCO"));
        }
        QCOMPARE(rig.list.catalogue.list().count(), 0);
        rig.dialogs.inputAnswers.enqueue(QString());
        rig.dialogs.messageAnswers.enqueue(platform::MessageAnswer::No);
        rig.search.controller.Command1Click();
        QCOMPARE(rig.list.catalogue.list().count(), 3);
        QCOMPARE(box->text(), rig.list.catalogue.list().row(0).origen);
        QCOMPARE(control<QLabel>(rig.list.form, "lblSerialNumber")->text(),
                 QStringLiteral("-2147483647"));
        QCOMPARE(control<QLabel>(rig.list.form, "lblFlags")->text(), QStringLiteral("&H401"));
        QCOMPARE(rig.caption(), QStringLiteral("La Búsqueda ha finalizado con exito"));
        QTRY_COMPARE(control<QLabel>(rig.list.form, "Label2")->text(),
                     QStringLiteral("La lista contiene 3 archivos actualmente"));
        QVERIFY(rig.list.form.isVisible());
        QVERIFY(control<QTimer>(rig.list.form, "Timer1")->isActive()); // the caption flashes
        // The rows' details follow, and the disc is recorded under the rows' group.
        QVERIFY(rig.list.catalogue.waitForDetails());
        QVERIFY(rig.list.catalogue.list().row(0).details.size >= 0);
        QCOMPARE(rig.list.catalogue.discs().count(), 1);
        const core::DiscRecord* disc = rig.list.catalogue.discs().find(box->text());
        QVERIFY(disc);
        QCOMPARE(disc->etiqueta, QStringLiteral("DISCO"));
        QCOMPARE(disc->serie, QStringLiteral("-2147483647"));
        QCOMPARE(disc->mascara, QStringLiteral("*.mp3"));
    }

    // The strip keeps a deep folder's start and end; the window stays within the screen.
    void aDeepFolderNeverWidensTheWindow()
    {
        Rig rig;
        catalogue::Form1& form = rig.list.form;
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        const QString deep = QStringLiteral("Buscando ... /inicio") +
                             QStringLiteral("/carpeta").repeated(300) + QStringLiteral("/fin");
        rig.list.form.setFolderStrip(deep);
        QCoreApplication::processEvents();
        QVERIFY(form.frameGeometry().width() <= form.screen()->availableGeometry().width());
        const QString shown = control<QLabel>(form, "Picture1")->text();
        QVERIFY(shown.startsWith(QStringLiteral("Buscando ... /inicio/carpeta")));
        QVERIFY(shown.endsWith(QStringLiteral("/fin")));
        QVERIFY(shown.contains(QChar(0x2026)));
    }

    void theHiddenButtonAndItsMenuEntryStopARunningSearch()
    {
        Rig rig;
        bool pressed = false;
        // The second press arrives while the walk lets events run, as a menu click would.
        auto* entry = control<QAction>(rig.list.form, "mnuFindFiles");
        QTimer::singleShot(0, &rig.list.form, [&] {
            QVERIFY(entry->isVisible());
            entry->trigger();
            pressed = true;
        });
        control<QPushButton>(rig.list.form, "Command1")->click();
        QVERIFY(pressed);
        QCOMPARE(rig.caption(), QStringLiteral("La Búsqueda ha sido cancelada por el usuario"));
        QVERIFY(rig.list.catalogue.list().count() < 3);
    }
};

QTEST_MAIN(TestListWindowSearch)
#include "tst_ListWindowSearch.moc"
