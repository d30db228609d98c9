// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "print/ITextMeasure.h"

#include <QList>
#include <QRectF>
#include <QStringList>

namespace nubo::print {

// One catalogue row as the cover needs it.
struct CoverRow
{
    QString name;  // NOMBRE
    QString group; // ORIGEN
};

// A text placed on the cover, in millimetres from the cover's top-left corner. A name too
// long for one readable line holds its lines separated by '\n', all inside box.
struct PlacedText
{
    QRectF box;
    QString text;
    double pointSize = 0;
    bool bold = false;
};

// One printed cover: its cut frame and its texts.
struct CoverPage
{
    QRectF frame;
    QList<PlacedText> texts;
};

// The size of the cover: the front insert of a CD jewel case, 120 x 120 mm.
inline constexpr double kCoverSizeMm = 120.0;

// Lays the columns out on covers: a header line with the rows' group names, then the
// columns side by side, sharing one size at which names too wide are broken over lines. A
// column too dense for that keeps one name to a line and shrinks to its longest name; lines
// too many for one cover at the smallest font go on to further covers. No name is cut.
QList<CoverPage> layoutCover(const QList<CoverRow>& rows, const QList<QStringList>& columns,
                             const ITextMeasure& measure);

// The rows' group names, each once, in list order, joined by " - ".
QString groupLine(const QList<CoverRow>& rows);

} // namespace nubo::print
