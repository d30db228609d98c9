// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/QtDialogs.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>
#include <QtTest>

using nubo::platform::QtDialogs;

class QtDialogsTest final : public QObject
{
    Q_OBJECT

private slots:
    // A question asked from a window other than the main one opens over that window, so the
    // main window is not raised over it when the question closes, nor by a second question
    // asked before the window is active again. An input box is wide
    // enough to show its whole title, which may be the only place it tells its range.
    void questionsOpenOverTheActiveWindow()
    {
        QWidget mainWindow;
        QWidget listWindow;
        mainWindow.show();
        listWindow.show();
        QtDialogs dialogs;
        dialogs.setParentWindow(&mainWindow);

        QList<QWidget*> owners;
        bool titleFits = false;
        const auto closeNextQuestion = [&](QWidget* active) {
            QApplication::setActiveWindow(active);
            QTimer::singleShot(0, [&] {
                auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                owners << (dialog ? dialog->parentWidget() : nullptr);
                if (!dialog)
                    return;
                titleFits = dialog->width() >
                            dialog->fontMetrics().horizontalAdvance(dialog->windowTitle()) + 100;
                dialog->reject();
            });
        };
        closeNextQuestion(&listWindow);
        QVERIFY(!dialogs.inputBox(QStringLiteral("¿Cuántas?"),
                                  QStringLiteral("defina un numero entre 2 y 8, por favor"),
                                  QStringLiteral("6")));
        QVERIFY(titleFits);
        closeNextQuestion(nullptr); // the list window not yet active again
        dialogs.messageBox(QStringLiteral("Error"), QStringLiteral("t"),
                           nubo::platform::MessageButtons::Ok, nubo::platform::MessageIcon::None);
        closeNextQuestion(&listWindow);
        QVERIFY(
            dialogs.saveFileName(QStringLiteral("t"), QStringLiteral("PDF|*.pdf"), {}).isEmpty());
        QCOMPARE(owners, (QList<QWidget*>{&listWindow, &listWindow, &listWindow}));
    }
};

QTEST_MAIN(QtDialogsTest)
#include "tst_QtDialogs.moc"
