// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/CoverLayout.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace nubo::print {

namespace {

constexpr double kMarginMm = 6.0;
constexpr double kHeaderHeightMm = 7.0;
constexpr double kBodyTopMm = kMarginMm + kHeaderHeightMm + 2.0;
constexpr double kBodyHeightMm = kCoverSizeMm - kMarginMm - kBodyTopMm;
constexpr double kGutterMm = 1.5;
constexpr double kMmPerPoint = 25.4 / 72.0;
constexpr double kLineSpacing = 1.2;
constexpr double kLargestNamePt = 8.0;
// The smallest font a column starts from; only a name too long for it shrinks further.
constexpr double kSmallestNamePt = 4.5;
constexpr double kLargestHeaderPt = 11.0;
// A whole column shrinks no further than this for the sake of one long name.
constexpr double kReadablePt = 3.0;
// Opens every line after a name's first, so a broken name cannot be read as the next one.
const QString kContinuationIndent = QStringLiteral("\u2002\u2002");

double lineHeightMm(double pointSize)
{
    return pointSize * kMmPerPoint * kLineSpacing;
}

// The largest size up to maxPt at which every text fits width; never cuts a text.
double fittingSize(const QStringList& texts, double maxPt, double width, bool bold,
                   const ITextMeasure& measure)
{
    double size = maxPt;
    for (const QString& text : texts) {
        double drawn = measure.widthMm(text, size, bold);
        // Widths grow almost linearly with the size; hinting may need a step or two more.
        for (int step = 0; drawn > width && step < 8; ++step) {
            size *= width / drawn * 0.98;
            drawn = measure.widthMm(text, size, bold);
        }
    }
    return size;
}

struct Grid
{
    int pages = 1;
    int linesPerPage = 0;
    double pointSize = kLargestNamePt;
};

Grid gridFor(const QList<QStringList>& columns)
{
    qsizetype longest = 0;
    for (const QStringList& column : columns)
        longest = std::max(longest, column.size());
    const int maxLines = static_cast<int>(kBodyHeightMm / lineHeightMm(kSmallestNamePt));
    Grid grid;
    grid.pages = std::max<int>(1, static_cast<int>((longest + maxLines - 1) / maxLines));
    grid.linesPerPage = static_cast<int>((longest + grid.pages - 1) / grid.pages);
    if (grid.linesPerPage > 0) {
        const double line =
            std::min(kBodyHeightMm / grid.linesPerPage, lineHeightMm(kLargestNamePt));
        grid.pointSize = line / (kMmPerPoint * kLineSpacing);
    }
    return grid;
}

// The words of text in lines no wider than width at pointSize, every line after the first
// indented; nothing when a word alone (indented, past the first line) is wider.
QStringList wrappedLines(const QString& text, double pointSize, double width,
                         const ITextMeasure& measure)
{
    const auto fits = [&](const QString& line) {
        return measure.widthMm(line, pointSize, false) <= width;
    };
    QStringList lines;
    for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (!lines.isEmpty() && fits(lines.last() + QLatin1Char(' ') + word)) {
            lines.last() += QLatin1Char(' ') + word;
            continue;
        }
        const QString line = lines.isEmpty() ? word : kContinuationIndent + word;
        if (!fits(line))
            return {};
        lines << line;
    }
    return lines;
}

// A name too long for one readable line is broken at its blanks, at the largest size from
// maxPt down to readablePt whose lines fit in maxHeight; its box grows to hold them.
std::optional<PlacedText> wrappedName(const QString& name, const QRectF& slot, double maxHeight,
                                      double maxPt, double readablePt, const ITextMeasure& measure)
{
    for (double size = maxPt; size >= readablePt; size *= 0.95) {
        const QStringList lines = wrappedLines(name, size, slot.width(), measure);
        const double height = lines.size() * lineHeightMm(size);
        if (lines.size() > 1 && height <= maxHeight) {
            QRectF box = slot;
            box.setHeight(std::max(slot.height(), height));
            return PlacedText{box, lines.join(QLatin1Char('\n')), size};
        }
    }
    return std::nullopt;
}

// Names at size, each in a box one step high: a name narrower at its own size than
// wrapBelow is broken at its blanks (from size down to wrapBelow) into lines no taller than
// maxHeight, its box growing to hold them; a name that cannot be broken shrinks on its own.
QList<PlacedText> placedNames(const QStringList& names, double width, double step, double size,
                              double wrapBelow, double maxHeight, const ITextMeasure& measure)
{
    QList<PlacedText> texts;
    for (const QString& name : names) {
        const QRectF slot(0, 0, width, step);
        const double own = fittingSize({name}, size, width, false, measure);
        const std::optional<PlacedText> wrapped =
            own < wrapBelow ? wrappedName(name, slot, maxHeight, size, wrapBelow, measure)
                            : std::nullopt;
        texts.append(wrapped.value_or(PlacedText{slot, name, own}));
    }
    return texts;
}

// A dense column: a long name is broken only within its own line's height.
QList<PlacedText> slotColumn(const QStringList& names, double width, double step, double size,
                             double readable, const ITextMeasure& measure)
{
    return placedNames(names, width, step, size, readable, step, measure);
}

// A column with room: a long name keeps the size over as many lines as it needs.
QList<PlacedText> flowColumn(const QStringList& names, double width, double step, double size,
                             const ITextMeasure& measure)
{
    return placedNames(names, width, step, size, size, kBodyHeightMm, measure);
}

double heightOf(const QList<PlacedText>& texts)
{
    double height = 0;
    for (const PlacedText& text : texts)
        height += text.box.height();
    return height;
}

double stepOf(const Grid& grid)
{
    return std::min(kBodyHeightMm / std::max(grid.linesPerPage, 1), lineHeightMm(kLargestNamePt));
}

double smallestSizeOf(const QList<PlacedText>& texts)
{
    double smallest = kLargestNamePt;
    for (const PlacedText& text : texts)
        smallest = std::min(smallest, text.pointSize);
    return smallest;
}

// The largest size, from the grid's down to the readable one, at which the column flows into
// the cover's height with every word whole at that size (only at the readable size may a word
// too wide shrink on its own); 0 when the column does not flow even then.
double flowSizeOf(const QStringList& names, double width, const Grid& grid,
                  const ITextMeasure& measure)
{
    const double readable = std::min(kReadablePt, grid.pointSize);
    // Smaller sizes never take more height: a dense column is known at the readable size.
    if (heightOf(flowColumn(names, width, stepOf(grid), readable, measure)) > kBodyHeightMm + 1e-9)
        return 0;
    for (double size = grid.pointSize; size >= readable; size *= 0.9) {
        const QList<PlacedText> texts = flowColumn(names, width, stepOf(grid), size, measure);
        if (heightOf(texts) > kBodyHeightMm + 1e-9)
            continue;
        if (size * 0.9 < readable || smallestSizeOf(texts) >= size * 0.999)
            return size;
    }
    return 0;
}

// Places one column at x: flowing at flowSize when it has one, else one name to a line, the
// column shrinking to its longest name but not below a readable size, so one name far too
// long does not take the whole column down with it.
void placeColumn(CoverPage& page, const QStringList& names, double x, double width,
                 const Grid& grid, double flowSize, const ITextMeasure& measure)
{
    QList<PlacedText> texts;
    if (flowSize > 0) {
        texts = flowColumn(names, width, stepOf(grid), flowSize, measure);
    } else {
        const double readable = std::min(kReadablePt, grid.pointSize);
        QStringList fitting;
        for (const QString& text : names) {
            if (measure.widthMm(text, readable, false) <= width)
                fitting << text;
        }
        const double size =
            std::max(fittingSize(fitting, grid.pointSize, width, false, measure), readable);
        texts = slotColumn(names, width, stepOf(grid), size, readable, measure);
    }
    double y = kBodyTopMm;
    for (PlacedText& text : texts) {
        text.box.moveTopLeft(QPointF(x, y));
        y += text.box.height();
        page.texts.append(text);
    }
}

} // namespace

QString groupLine(const QList<CoverRow>& rows)
{
    QStringList groups;
    for (const CoverRow& row : rows) {
        if (!row.group.isEmpty() && !groups.contains(row.group))
            groups << row.group;
    }
    return groups.join(QStringLiteral(" - "));
}

QList<CoverPage> layoutCover(const QList<CoverRow>& rows, const QList<QStringList>& columns,
                             const ITextMeasure& measure)
{
    const Grid grid = gridFor(columns);
    const QString groups = groupLine(rows);
    const double inner = kCoverSizeMm - 2 * kMarginMm;
    const double columnWidth = columns.isEmpty() ? inner : inner / columns.size();
    QList<CoverPage> pages;
    for (int p = 0; p < grid.pages; ++p) {
        CoverPage page{QRectF(0, 0, kCoverSizeMm, kCoverSizeMm), {}};
        QString header = groups;
        if (grid.pages > 1)
            header += QStringLiteral(" (%1/%2)").arg(p + 1).arg(grid.pages);
        const double headerSize = fittingSize({header}, kLargestHeaderPt, inner, true, measure);
        page.texts.append(
            {QRectF(kMarginMm, kMarginMm, inner, kHeaderHeightMm), header, headerSize, true});
        QList<QStringList> lines;
        for (const QStringList& column : columns)
            lines << column.mid(qsizetype(p) * grid.linesPerPage, grid.linesPerPage);
        const double width = columnWidth - kGutterMm;
        // The columns that flow share one size, the smallest any of them needs.
        QList<double> flowSizes;
        double shared = grid.pointSize;
        for (const QStringList& column : lines) {
            flowSizes << flowSizeOf(column, width, grid, measure);
            if (flowSizes.last() > 0)
                shared = std::min(shared, flowSizes.last());
        }
        for (qsizetype c = 0; c < lines.size(); ++c)
            placeColumn(page, lines.at(c), kMarginMm + c * columnWidth, width, grid,
                        flowSizes.at(c) > 0 ? shared : 0, measure);
        pages.append(page);
    }
    return pages;
}

} // namespace nubo::print
