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
        QTest::newRow("extension, other case") << "*.mp3"
                                               << "Tema.MP3" << true;
        QTest::newRow("extension must end the name") << "*.mp3"
                                                     << "tema.mp3.txt" << false;
        QTest::newRow("longer extension") << "*.mp3"
                                          << "tema.mp3x" << false;
        QTest::newRow("star-dot-star with dot") << "*.*"
                                                << "a.b" << true;
        QTest::newRow("star-dot-star without dot") << "*.*"
                                                   << "LEAME" << true;
        QTest::newRow("star-dot-star dot file") << "*.*"
                                                << ".hidden" << true;
        QTest::newRow("question mark is one character") << "t?ma.jpg"
                                                        << "tema.jpg" << true;
        QTest::newRow("question mark needs a character") << "t?ma.jpg"
                                                         << "tma.jpg" << false;
        QTest::newRow("star matches empty") << "*tema*"
                                            << "tema" << true;
        QTest::newRow("backtracking") << "*a*b*c"
                                      << "aXbYbZc" << true;
        QTest::newRow("backtracking fails") << "*a*b*c"
                                            << "aXbYbZ" << false;
        QTest::newRow("accented letters fold") << "canción.*"
                                               << "CANCIÓN.mp3" << true;
        QTest::newRow("no wildcard, exact") << "Config.nbo"
                                            << "config.NBO" << true;
        QTest::newRow("mask without a dot") << "mp3"
                                            << "tema.mp3" << false;
    }
    void matches()
    {
        QFETCH(QString, pattern);
        QFETCH(QString, name);
        QFETCH(bool, expected);
        QCOMPARE(wildcardMatch(pattern, name), expected);
    }

    void longNamesStayFast()
    {
        // A pathological pattern must not backtrack exponentially.
        const QString name = QString(5000, QLatin1Char('a'));
        QVERIFY(!wildcardMatch(QStringLiteral("*a*a*a*a*a*a*a*b"), name));
    }
};

QTEST_GUILESS_MAIN(TestWildcard)
#include "tst_wildcard.moc"
