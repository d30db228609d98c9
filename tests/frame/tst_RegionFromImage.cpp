// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/RegionFromImage.h"

#include <QTest>

using nubo::frame::RegionDesdeImagen;

namespace {

// A picture given as rows of characters: '.' is the key colour, anything else opaque.
QList<QRect> regionOf(const QStringList& rows)
{
    const int height = int(rows.size());
    const int width = height ? int(rows[0].size()) : 0;
    return RegionDesdeImagen(width, height, [&rows](int x, int y) {
        const QChar c = rows[y][x];
        return c == u'.' ? 0xff00ffu : quint32(c.unicode());
    });
}

} // namespace

class TestRegionFromImage final : public QObject
{
    Q_OBJECT
private slots:
    void regions_data()
    {
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QList<QRect>>("expected");
        QStringList single(10, QString(8, u'.'));
        single[7][5] = u'#';
        QTest::newRow("single pixel") << single << QList<QRect>{QRect(5, 7, 1, 1)};
        QTest::newRow("empty picture") << QStringList{} << QList<QRect>{};
        QTest::newRow("two runs on a row") << QStringList{"........", ".##..##.", "........"}
                                           << QList<QRect>{QRect(1, 1, 2, 1), QRect(5, 1, 2, 1)};
        // Row 1's run reaches the right edge, stays open and closes at row 2's first
        // transparent pixel, on row 2, from the old start column.
        QTest::newRow("carried run")
            << QStringList{"..........", "......####", "#########.", ".........."}
            << QList<QRect>{QRect(6, 2, 3, 1)};
        QTest::newRow("carried run closing left of its start")
            << QStringList{"..........", "......####", "##........", ".........."}
            << QList<QRect>{QRect(2, 2, 4, 1)};
        QTest::newRow("run open after the last row adds nothing")
            << QStringList{"........", "....####"} << QList<QRect>{};
        QTest::newRow("different opaque colours form one run")
            << QStringList{"......", ".abc..", "......"} << QList<QRect>{QRect(1, 1, 3, 1)};
        // The top-left pixel decides: an opaque corner makes its own colour the transparent one.
        QTest::newRow("opaque corner")
            << QStringList{"##.#", "####"} << QList<QRect>{QRect(2, 0, 1, 1)};
    }

    void regions()
    {
        QFETCH(QStringList, rows);
        QTEST(regionOf(rows), "expected");
    }
};

QTEST_GUILESS_MAIN(TestRegionFromImage)
#include "tst_RegionFromImage.moc"
