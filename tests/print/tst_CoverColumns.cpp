// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/CoverColumns.h"
#include "print/CoverLayout.h"
#include "print/CoverQuestion.h"

#include "platform/fakes/FakeDialogs.h"

#include <QtTest>

using namespace nubo::print;

namespace {

// A placed name as one line again: its lines joined, the continuation lines' indent dropped.
QString unbroken(const QString& text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString& line : lines)
        line = line.trimmed();
    return lines.join(QLatin1Char(' '));
}

// Every character 0.2 mm wide per point, so a width is easy to work out.
class LinearMeasure final : public ITextMeasure
{
public:
    double widthMm(const QString& text, double pointSize, bool) const override
    {
        return text.size() * 0.2 * pointSize;
    }
};

QStringList namesOf(int count)
{
    QStringList names;
    for (int i = 1; i <= count; ++i)
        names << QStringLiteral("tema %1").arg(i);
    return names;
}

QStringList flattened(const QList<QStringList>& columns)
{
    QStringList all;
    for (const QStringList& column : columns)
        all += column;
    return all;
}

} // namespace

class CoverColumnsTest final : public QObject
{
    Q_OBJECT
private slots:
    // Answers are rounded half to even; the count of names per column is too, and must fit
    // 16 bits like the count of columns.
    void answersBecomeColumnCountsOrErrors_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("columns"); // 0: refused
        QTest::addColumn<int>("error");
        QTest::newRow("largest") << "20" << 10 << 20 << 0;
        QTest::newRow("2.5 -> 2") << "2,5" << 10 << 2 << 0;
        QTest::newRow("empty") << "" << 10 << 0 << 13;
        QTest::newRow("zero: division by zero") << "0" << 10 << 0 << 11;
        QTest::newRow("negative") << "-3" << 10 << 0 << 5;
        QTest::newRow("too many to fit") << "21" << 10 << 0 << 6;
        QTest::newRow("names per column beyond 16 bits") << "2" << 100000 << 0 << 6;
    }
    void answersBecomeColumnCountsOrErrors()
    {
        QFETCH(QString, answer);
        QFETCH(int, rows);
        QFETCH(int, columns);
        QFETCH(int, error);
        const auto grid = coverGridFor(answer, namesOf(rows));
        const QString& text = grid.reason();
        QCOMPARE(grid ? grid->n : 0, columns);
        if (error != 0)
            QVERIFY2(text.startsWith(QStringLiteral("Ha ocurrido el Error : %1: ").arg(error)),
                     qPrintable(text));
    }

    // The default answer gives six headers; a bad answer is reported, a cancel is not.
    void theQuestionAndItsAnswers()
    {
        nubo::platform::FakeDialogs dialogs; // answers with the default text
        const auto grid = askCoverGrid(dialogs, namesOf(12));
        QVERIFY(grid);
        QCOMPARE(grid->headers, (QStringList{"COLUMNA1", "COLUMNA2", "COLUMNA3", "COLUMNA4",
                                             "COLUMNA5", "COLUMNA6"}));
        dialogs.inputAnswers << QStringLiteral("x") << std::nullopt;
        QVERIFY(!askCoverGrid(dialogs, namesOf(3)));
        QCOMPARE(dialogs.asked.size(), 3);
        QVERIFY(dialogs.asked.at(2).text.contains(QStringLiteral("No coinciden los tipos")));
        QVERIFY(!askCoverGrid(dialogs, namesOf(3)));
        QCOMPARE(dialogs.asked.size(), 4); // the question only
    }

    void columnsFillInListOrderWithNoNameLost_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<int>("n");
        QTest::addColumn<QList<int>>("sizes");
        QTest::newRow("none") << 0 << 4 << QList<int>{0, 0, 0, 0};
        QTest::newRow("one, R = 0") << 1 << 4 << QList<int>{1, 0, 0, 0};
        QTest::newRow("R rounds down: two more") << 10 << 4 << QList<int>{3, 3, 2, 2};
        QTest::newRow("R rounds up: last short") << 14 << 4 << QList<int>{4, 4, 4, 2};
        QTest::newRow("N x R + 3") << 27 << 6 << QList<int>{5, 5, 5, 4, 4, 4};
    }
    void columnsFillInListOrderWithNoNameLost()
    {
        QFETCH(int, rows);
        QFETCH(int, n);
        QFETCH(QList<int>, sizes);
        const QStringList names = namesOf(rows);
        const auto grid = coverGridFor(QString::number(n), names);
        QVERIFY(grid);
        QList<int> got;
        for (const QStringList& column : grid->columns)
            got << static_cast<int>(column.size());
        QCOMPARE(got, sizes);
        QCOMPARE(flattened(grid->columns), names); // column by column, in list order
    }

    void theLayoutKeepsEveryNameAndFitsLongOnes()
    {
        const LinearMeasure measure;
        QStringList names = namesOf(400);
        names[7] = QString(200, QLatin1Char('x')); // far too long for a sixth of 12 cm
        names[8] = QStringLiteral("uno dos tres cuatro cinco seis siete ocho nueve");
        QList<CoverRow> rows;
        for (const QString& name : names)
            rows.append({name, name == names.first() ? "Rock" : "Pop"});
        const auto grid = coverGridFor(QStringLiteral("6"), names);
        const QList<CoverPage> pages = layoutCover(rows, grid->columns, measure);
        QVERIFY(pages.size() > 1); // 67 lines a column do not fit one cover
        QStringList placed;
        for (const CoverPage& page : pages) {
            QCOMPARE(page.frame, QRectF(0, 0, 120, 120));
            QVERIFY(page.texts.first().text.startsWith(QStringLiteral("Rock - Pop (")));
            for (const PlacedText& text : page.texts.mid(1)) {
                const QStringList lines = text.text.split(QLatin1Char('\n'));
                placed << unbroken(text.text);
                QVERIFY(page.frame.contains(text.box));
                QVERIFY(lines.size() * text.pointSize * 25.4 / 72 * 1.2 <=
                        text.box.height() + 1e-9);
                for (const QString& line : lines)
                    QVERIFY2(measure.widthMm(line, text.pointSize, false) <= text.box.width(),
                             qPrintable(line));
            }
        }
        QCOMPARE(placed.size(), names.size());
        QCOMPARE(QSet<QString>(placed.begin(), placed.end()),
                 QSet<QString>(names.begin(), names.end()));
        // A long name with blanks takes two readable lines of its slot; one without any
        // shrinks alone; their neighbours keep a readable size.
        const auto placedAs = [&](const QString& name) {
            for (const PlacedText& text : pages.first().texts)
                if (unbroken(text.text) == name)
                    return text;
            return PlacedText{};
        };
        const auto sizeOf = [&](const QString& name) { return placedAs(name).pointSize; };
        QCOMPARE(placedAs(names[8]).text.count(QLatin1Char('\n')), 1);
        QVERIFY(sizeOf(names[8]) >= 3.0);
        QVERIFY(sizeOf(names[7]) < 1.0);
        QCOMPARE(sizeOf(names[6]), sizeOf(names[70])); // as large as the next column
    }

    // With room below, a long name keeps the column's size over as many lines as it needs
    // and pushes the names under it down; a word too wide for the line shrinks the columns,
    // which all keep one size.
    void aLongNameWithRoomTakesTheLinesItNeeds()
    {
        const LinearMeasure measure;
        QStringList names = namesOf(12);
        names[2] = QStringList(30, QStringLiteral("largo")).join(QLatin1Char(' ')) +
                   QLatin1Char(' ') + QString(40, QLatin1Char('w'));
        QList<CoverRow> rows;
        for (const QString& name : names)
            rows.append({name, {}});
        const auto grid = coverGridFor(QStringLiteral("2"), names);
        const QList<PlacedText> texts = layoutCover(rows, grid->columns, measure).first().texts;
        const PlacedText& longName = texts.at(3); // after the header and two names
        QVERIFY(longName.text.count(QLatin1Char('\n')) >= 3);
        QCOMPARE(longName.pointSize, texts.at(2).pointSize);
        QCOMPARE(longName.pointSize, texts.at(7).pointSize); // the second column
        QVERIFY(longName.pointSize < 8.0);
        for (const QString& line : longName.text.split(QLatin1Char('\n')))
            QVERIFY(measure.widthMm(line, longName.pointSize, false) <= longName.box.width());
        QVERIFY(longName.text.split(QLatin1Char('\n')).at(1).startsWith(QChar(0x2002)));
        QCOMPARE(texts.at(4).box.top(), longName.box.bottom());
        QVERIFY(QRectF(0, 0, 120, 120).contains(texts.at(6).box)); // the column's last name
    }
};

QTEST_GUILESS_MAIN(CoverColumnsTest)
#include "tst_CoverColumns.moc"
