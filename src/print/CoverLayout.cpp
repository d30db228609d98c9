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

// The words of text in lines no wider than width at pointSize, or nothing when one word
// alone is wider.
QStringList wrappedLines(const QString& text, double pointSize, double width,
                         const ITextMeasure& measure)
{
    QStringList lines;
    for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (measure.widthMm(word, pointSize, false) > width)
            return {};
        const QString longer = lines.isEmpty() ? word : lines.last() + QLatin1Char(' ') + word;
        if (!lines.isEmpty() && measure.widthMm(longer, pointSize, false) <= width)
            lines.last() = longer;
        else
            lines << word;
    }
    return lines;
}

// A name too long for one readable line is broken at its blanks into as many lines as its
// slot holds, at the largest size from maxPt down to readablePt that lets it fit.
std::optional<PlacedText> wrappedName(const QString& name, const QRectF& slot, double maxPt,
                                      double readablePt, const ITextMeasure& measure)
{
    for (double size = maxPt; size >= readablePt; size *= 0.95) {
        const QStringList lines = wrappedLines(name, size, slot.width(), measure);
        if (lines.size() > 1 && lines.size() * lineHeightMm(size) <= slot.height())
            return PlacedText{slot, lines.join(QLatin1Char('\n')), size};
    }
    return std::nullopt;
}

void placeColumn(CoverPage& page, const QStringList& lines, double x, double width,
                 const Grid& grid, const ITextMeasure& measure)
{
    // The column shrinks to its longest name, but not below a readable size: a name far too
    // long is broken over two or more lines of its slot, or else shrinks on its own, instead
    // of taking the whole column down with it.
    const double readable = std::min(kReadablePt, grid.pointSize);
    QStringList fitting;
    for (const QString& text : lines) {
        if (measure.widthMm(text, readable, false) <= width)
            fitting << text;
    }
    const double size =
        std::max(fittingSize(fitting, grid.pointSize, width, false, measure), readable);
    const double line = kBodyHeightMm / std::max(grid.linesPerPage, 1);
    const double step = std::min(line, lineHeightMm(kLargestNamePt));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QRectF slot(x, kBodyTopMm + i * step, width, step);
        const double own = fittingSize({lines.at(i)}, size, width, false, measure);
        const std::optional<PlacedText> wrapped =
            own < readable ? wrappedName(lines.at(i), slot, size, readable, measure) : std::nullopt;
        page.texts.append(wrapped.value_or(PlacedText{slot, lines.at(i), own}));
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
        for (qsizetype c = 0; c < columns.size(); ++c) {
            const QStringList lines =
                columns.at(c).mid(qsizetype(p) * grid.linesPerPage, grid.linesPerPage);
            placeColumn(page, lines, kMarginMm + c * columnWidth, columnWidth - kGutterMm, grid,
                        measure);
        }
        pages.append(page);
    }
    return pages;
}

} // namespace nubo::print
