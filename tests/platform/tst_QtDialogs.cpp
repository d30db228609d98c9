#include "platform/ui/QtDialogs.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <QtTest>

using nubo::platform::MessageButtons;
using nubo::platform::MessageIcon;
using nubo::platform::QtDialogs;

class QtDialogsTest final : public QObject
{
    Q_OBJECT

private slots:
    // Asked from the list window, a question or file dialog belongs to it, so that closing the
    // dialog gives the focus back to it and does not raise the main window over it.
    void dialogsOpenOverTheAskingWindow_data()
    {
        QTest::addColumn<QString>("kind");
        QTest::newRow("message box") << "message";
        QTest::newRow("save dialog") << "save";
        QTest::newRow("open dialog") << "open";
    }
    void dialogsOpenOverTheAskingWindow()
    {
        QFETCH(QString, kind);
        QWidget main;
        QWidget list;
        QtDialogs dialogs;
        dialogs.setParentWindow(&main);
        main.show();
        list.show();
        list.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&list));

        QPointer<QWidget> owner;
        QTimer::singleShot(0, this, [&owner] {
            if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
                owner = dialog->parentWidget();
                dialog->reject();
            }
        });
        if (kind == QLatin1String("message"))
            dialogs.messageBox(QStringLiteral("¿?"), QStringLiteral("Guardar lista actual"),
                               MessageButtons::YesNoCancel, MessageIcon::Question);
        else if (kind == QLatin1String("save"))
            QVERIFY(dialogs.saveFileName(QStringLiteral("Guardar como..."), {}, {}).isEmpty());
        else
            QVERIFY(dialogs.openFileName(QStringLiteral("Abrir"), {}, {}).isEmpty());
        QCOMPARE(owner.data(), &list);
    }
};

QTEST_MAIN(QtDialogsTest)
#include "tst_QtDialogs.moc"
