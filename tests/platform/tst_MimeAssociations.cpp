// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/ExecLine.h"
#include "platform/linux/MimeAssociations.h"

#include <QTemporaryDir>
#include <QTest>

#include "TestFiles.h"

using namespace nubo::platform;

// The default-application lookup and the enqueue commands, on temporary XDG folders.
class TestMimeAssociations final : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_root = std::make_unique<QTemporaryDir>();
        QVERIFY(m_root->isValid());
        m_dirs = {m_root->filePath("config"),
                  {m_root->filePath("etc")},
                  m_root->filePath("local"),
                  {m_root->filePath("share1"), m_root->filePath("share2")},
                  {}};
    }

    // A listed default beats MimeType= lines (a missing entry is passed over); the user's list
    // beats the system's, and a desktop-specific list beats both.
    void defaultListsInTheirOrder()
    {
        app("share2/applications/vlc.desktop", "vlc", "MimeType=audio/mpeg;\n");
        app("share2/applications/audacious.desktop", "audacious");
        app("local/applications/qmmp.desktop", "qmmp");
        write("etc/mimeapps.list",
              "[Default Applications]\naudio/mpeg=missing.desktop;audacious.desktop;\n");
        QCOMPARE(defaultFor("audio/mpeg"), QStringLiteral("audacious.desktop"));
        write("config/mimeapps.list", "[Default Applications]\naudio/mpeg=qmmp.desktop;\n");
        write("config/kde-mimeapps.list", "[Default Applications]\naudio/mpeg=vlc.desktop\n");
        QCOMPARE(defaultFor("audio/mpeg"), QStringLiteral("qmmp.desktop"));
        m_dirs.desktops = {QStringLiteral("kde")};
        QCOMPARE(defaultFor("audio/mpeg"), QStringLiteral("vlc.desktop"));
    }

    void fallsBackToMimeTypeLinesOrNothing()
    {
        app("share2/applications/deadbeef.desktop", "deadbeef",
            "MimeType=audio/mpeg;audio/x-wav;\n");
        app("share1/applications/hidden.desktop", "x", "MimeType=audio/mpeg;\nHidden=true\n");
        app("share1/applications/other.desktop", "y", "MimeType=audio/flac;\n");
        QCOMPARE(defaultFor("audio/mpeg"), QStringLiteral("deadbeef.desktop"));
        // A user's copy of an entry shadows the system one, even when it lists other types.
        app("local/applications/deadbeef.desktop", "deadbeef", "MimeType=audio/flac;\n");
        QCOMPARE(defaultFor("audio/mpeg"), QString());
        QCOMPARE(defaultFor("application/x-zip"), QString());
    }

    void removedAssociationsAreSkipped()
    {
        app("share1/applications/vlc.desktop", "vlc", "MimeType=audio/mpeg;\n");
        app("share2/applications/qmmp.desktop", "qmmp", "MimeType=audio/mpeg;\n");
        write("config/mimeapps.list", "[Removed Associations]\naudio/mpeg=vlc.desktop;\n");
        QCOMPARE(defaultFor("audio/mpeg"), QStringLiteral("qmmp.desktop"));
        write("config/mimeapps.list", "[Added Associations]\naudio/mpeg=vlc.desktop;\n"
                                      "[Removed Associations]\naudio/mpeg=qmmp.desktop;\n");
        QCOMPARE(defaultFor("audio/mpeg"), QStringLiteral("vlc.desktop"));
    }

    void mimeinfoCacheAndSubfolderIds()
    {
        app("share1/applications/kde/player.desktop", "player");
        write("share1/applications/mimeinfo.cache",
              "[MIME Cache]\naudio/mpeg=kde-player.desktop;\n");
        QCOMPARE(defaultFor("audio/mpeg"), QStringLiteral("kde-player.desktop"));
    }

    void aliasesAndParentTypes()
    {
        app("share1/applications/editor.desktop", "editor", "MimeType=text/plain;\n");
        app("share1/applications/mp3.desktop", "mp3player", "MimeType=audio/x-mp3;\n");
        QCOMPARE(defaultFor("text/x-csrc"), QStringLiteral("editor.desktop"));
        QCOMPARE(defaultFor("audio/mpeg"), QStringLiteral("mp3.desktop"));
    }

    void chooserListsShownApplications()
    {
        app("share1/applications/b.desktop", "Beta");
        app("share1/applications/a.desktop", "alfa");
        app("share1/applications/c.desktop", "gamma", "NoDisplay=true\n");
        QStringList names;
        for (const DesktopEntry& entry : MimeAssociations(m_dirs).applications())
            names.append(entry.name);
        QCOMPARE(names, (QStringList{"alfa", "Beta"}));
    }

    // Exec lines split as the desktop entry format quotes them, field codes expanded.
    void execLines()
    {
        QCOMPARE(exec::split(QStringLiteral("\"/opt/My Player/run\" -x  %f")),
                 std::optional<QStringList>({"/opt/My Player/run", "-x", "%f"}));
        QCOMPARE(exec::split(QStringLiteral("sh \"a \\\"b\\\" \\$c \\\\d\"")),
                 std::optional<QStringList>({"sh", "a \"b\" $c \\d"}));
        QCOMPARE(exec::split(QStringLiteral("prog \"open")), std::nullopt);
        const QString path = QStringLiteral("/m/Mi tema;$(x).mp3");
        DesktopEntry entry;
        entry.exec = QStringLiteral("player %i %c %% --file=%F %d");
        entry.name = QStringLiteral("Player");
        entry.icon = QStringLiteral("ico");
        QCOMPARE(exec::expand(entry, path),
                 (QStringList{"player", "--icon", "ico", "Player", "%", "--file=" + path}));
        entry.exec = QStringLiteral("player --new"); // without a field code the file goes last
        QCOMPARE(exec::expand(entry, path), (QStringList{"player", "--new", path}));
    }

private:
    void write(const QString& relative, const QByteArray& text)
    {
        QVERIFY(nubo::test::writeFile(m_root->filePath(relative), text));
    }
    void app(const QString& relative, const QByteArray& exec, const QByteArray& extra = {})
    {
        write(relative, "[Desktop Entry]\nType=Application\nName=" + exec + "\nExec=" + exec +
                            " %U\n" + extra);
    }
    QString defaultFor(const QString& mimeType) const
    {
        const auto entry = MimeAssociations(m_dirs).defaultApplication(mimeType);
        return entry ? entry->id : QString();
    }

    std::unique_ptr<QTemporaryDir> m_root;
    XdgDirs m_dirs;
};

QTEST_GUILESS_MAIN(TestMimeAssociations)
#include "tst_MimeAssociations.moc"
