// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/DesktopShell.h"
#include "platform/ui/DesktopPrompts.h"
#include "platform/ui/OpenWithDialog.h"

#include <QApplication>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "TestFiles.h"

using namespace nubo::platform;

// The shell's verbs on temporary XDG folders, with the process start and the chooser recorded.
class TestDesktopShell final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_root = std::make_unique<QTemporaryDir>();
        QVERIFY(m_root->isValid());
        m_dirs = {m_root->filePath("config"), {}, m_root->filePath("data"), {}, {}};
        m_started.clear();
        m_startResult = true;
        write("music/mi tema.mp3", "ID3");
        m_song = m_root->filePath("music/mi tema.mp3");
        write("data/applications/vlc.desktop", "[Desktop Entry]\nType=Application\nName=VLC\n"
                                               "Exec=/usr/bin/vlc --started-from-file %U\n");
        write("data/applications/rhythmbox.desktop",
              "[Desktop Entry]\nType=Application\nName=Rhythmbox\nExec=rhythmbox %F\n");
    }

    // Without a default application nothing starts; a missing file fails.
    void openStartsTheDefaultApplication()
    {
        QCOMPARE(shell()->open(m_song), IShell::Result::NoAssociation);
        QCOMPARE(shell()->enqueue(m_song), IShell::Result::NoAssociation);
        write("config/mimeapps.list", "[Default Applications]\naudio/mpeg=vlc.desktop\n");
        QCOMPARE(shell()->open(m_song), IShell::Result::Ok);
        QCOMPARE(m_started,
                 (QList<QStringList>{{"/usr/bin/vlc", "--started-from-file",
                                      QUrl::fromLocalFile(m_song).toString(QUrl::FullyEncoded)}}));
        QCOMPARE(shell()->open(m_root->filePath("music/borrado.mp3")), IShell::Result::Failed);
        QCOMPARE(shell()->open(QString()), IShell::Result::Failed);
        QCOMPARE(m_started.size(), 1);
        m_startResult = false;
        QCOMPARE(shell()->open(m_song), IShell::Result::Failed);
    }

    void enqueueUsesThePlayersOption()
    {
        write("config/mimeapps.list", "[Default Applications]\naudio/mpeg=vlc.desktop\n");
        QCOMPARE(shell()->enqueue(m_song), IShell::Result::Ok);
        QCOMPARE(m_started, (QList<QStringList>{
                                {"/usr/bin/vlc", "--one-instance", "--playlist-enqueue", m_song}}));
        // A player without an enqueue option opens the file instead.
        write("config/mimeapps.list", "[Default Applications]\naudio/mpeg=rhythmbox.desktop\n");
        QCOMPARE(shell()->enqueue(m_song), IShell::Result::Ok);
        QCOMPARE(m_started.last(), (QStringList{"rhythmbox", m_song}));
    }

    void chooserCommands()
    {
        const QList<DesktopEntry> applications = MimeAssociations(m_dirs).applications();
        OpenWithDialog dialog(applications, m_song);
        QCOMPARE(dialog.listApplications->count(), 2);
        QCOMPARE(dialog.command(), QStringList());
        dialog.listApplications->setCurrentRow(0); // Rhythmbox, by name
        QCOMPARE(dialog.command(), (QStringList{"rhythmbox", m_song}));
        dialog.setProgram(QStringLiteral("/usr/local/bin/reproductor"));
        QCOMPARE(dialog.command(), (QStringList{"/usr/local/bin/reproductor", m_song}));
    }

    // The chooser belongs to the window the user double-clicked in, not to the main window.
    void chooserOpensOverTheActiveWindow()
    {
        QWidget main;
        QWidget list;
        list.show();
        list.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&list));
        const DesktopPrompts prompts = desktopPrompts(&main);
        QWidget* owner = nullptr;
        QTimer::singleShot(0, [&owner] {
            QWidget* chooser = QApplication::activeModalWidget();
            owner = chooser ? chooser->parentWidget() : nullptr;
            if (chooser)
                chooser->close();
        });
        QVERIFY(prompts.chooser({}, m_song).isEmpty());
        QCOMPARE(owner, &list);
    }

private:
    void write(const QString& relative, const QByteArray& text)
    {
        QVERIFY(nubo::test::writeFile(m_root->filePath(relative), text));
    }
    std::unique_ptr<DesktopShell> shell()
    {
        return std::make_unique<DesktopShell>(
            MimeAssociations(m_dirs),
            [this](const QString& program, const QStringList& arguments) {
                m_started.append(QStringList{program} + arguments);
                return m_startResult;
            },
            [](const QList<DesktopEntry>&, const QString&) { return QStringList(); },
            [](const QString&) { return false; });
    }

    std::unique_ptr<QTemporaryDir> m_root;
    XdgDirs m_dirs;
    QString m_song;
    QList<QStringList> m_started;
    bool m_startResult = true;
};

QTEST_MAIN(TestDesktopShell)
#include "tst_DesktopShell.moc"
