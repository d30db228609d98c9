// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MaskList.h"
#include "platform/Wildcard.h"

#include <QTest>

using nubo::platform::wildcardMatch;

class TestWildcard final : public QObject
{
    Q_OBJECT
private slots:
    void matches_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("expected");
        struct Case
        {
            const char* row;
            const char* pattern;
            const char* name;
            bool expected;
        };
        const Case cases[] = {
            {"extension, other case", "*.mp3", "Tema.MP3", true},
            {"extension must end the name", "*.mp3", "tema.mp3.txt", false},
            {"star-dot-star dot file", "*.*", ".hidden", true},
            {"question mark needs a character", "t?ma.jpg", "tma.jpg", false},
            {"backtracking fails", "*a*b*c", "aXbYbZ", false},
            {"accented letters fold", "canción.*", "CANCIÓN.mp3", true},
            {"mask without a dot", "mp3", "tema.mp3", false},
            {"any extension finds no extension", "tema.*", "tema", true},
            {"star-dot finds no extension", "*.", "LEAME", true},
            {"star-dot refuses an extension", "*.", "tema.mp3", false},
            {"star-dot refuses a dot file", "*.", ".hidden", false},
            {"question mark at the end may be none", "tema?", "tema", true},
            {"question mark before a dot may be none", "tema?.mp3", "tema.mp3", true},
            {"question mark never takes a dot", "a?b", "a.b", false},
            {"trailing blanks ignored", "*.mp3  ", "tema.mp3", true},
            {"trailing dots ignored", "tema..", "tema", true},
            {"trailing dot and blank ignored", "tema. ", "tema.mp3", false},
            {"doubled star is one star", "**.*", "LEAME", true},
            {"star stops at the last dot", "*.mp3", "a.b.mp3", true},
            {"extension alone is a name", "*.mp3", ".MP3", true},
            {"extension needs its dot", "*.mp3", "mp3", false},
            {"star then letters", "*3", "tema.mp3", true},
        };
        for (const Case& c : cases)
            QTest::newRow(c.row) << QString::fromUtf8(c.pattern) << QString::fromUtf8(c.name)
                                 << c.expected;
    }

    void matches()
    {
        QFETCH(QString, pattern);
        QFETCH(QString, name);
        QTEST(wildcardMatch(pattern, name), "expected");
    }

    void severalPatterns_data()
    {
        QTest::addColumn<QString>("mask");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("expected");
        QTest::newRow("first") << "*.flac;*.ogg"
                               << "a.FLAC" << true;
        QTest::newRow("second, after a blank") << "*.flac; *.ogg"
                                               << "b.ogg" << true;
        QTest::newRow("neither") << "*.flac;*.ogg"
                                 << "c.mp3" << false;
        QTest::newRow("empty pieces ignored") << ";*.ogg;;"
                                              << "b.ogg" << true;
        QTest::newRow("nothing but separators") << ";;"
                                                << "b.ogg" << false;
    }
    void severalPatterns()
    {
        QFETCH(QString, mask);
        QFETCH(QString, name);
        QTEST(nubo::platform::MaskList(mask).matches(name), "expected");
    }

    void longNamesStayFast()
    {
        // A pathological pattern must not backtrack exponentially.
        const QString name = QString(5000, QLatin1Char('a'));
        QVERIFY(!wildcardMatch(QStringLiteral("*a*a*a*a*a*a*a*b"), name));
    }
};

QTEST_GUILESS_MAIN(TestWildcard)
#include "tst_Wildcard.moc"
