// SPDX-License-Identifier: GPL-3.0-or-later
#include "print/paint/CoverPainter.h"

#include <QFontMetricsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <algorithm>

namespace nubo::print {

namespace {

constexpr double kMmPerInch = 25.4;
constexpr int kPdfResolution = 600;

// Millimetres on the cover to device pixels: the cover's scale and its corner on the page.
struct CoverPlacement
{
    double pixelsPerMm = 1;
    double scale = 1;
    QPointF corner;

    QRectF map(const QRectF& mm) const
    {
        const double k = pixelsPerMm * scale;
        return {corner.x() + mm.x() * k, corner.y() + mm.y() * k, mm.width() * k, mm.height() * k};
    }
};

CoverPlacement placementOn(const QPaintDevice& device)
{
    CoverPlacement placement;
    placement.pixelsPerMm = device.logicalDpiX() / kMmPerInch;
    const double widthMm = device.width() / placement.pixelsPerMm;
    const double heightMm = device.height() / placement.pixelsPerMm;
    placement.scale = std::min({1.0, widthMm / kCoverSizeMm, heightMm / kCoverSizeMm});
    const double side = kCoverSizeMm * placement.scale * placement.pixelsPerMm;
    placement.corner = QPointF((device.width() - side) / 2, (device.height() - side) / 2);
    return placement;
}

void paintCover(QPainter& painter, const CoverPlacement& placement, const CoverPage& page)
{
    painter.setPen(QPen(Qt::gray, 0));
    painter.drawRect(placement.map(page.frame));
    painter.setPen(Qt::black);
    for (const PlacedText& text : page.texts) {
        painter.setFont(coverFont(text.pointSize * placement.scale, text.bold));
        // Lines break only where the layout put '\n'; nothing is clipped.
        const int lines = text.text.contains(QLatin1Char('\n')) ? 0 : Qt::TextSingleLine;
        painter.drawText(placement.map(text.box),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip | lines, text.text);
    }
}

} // namespace

QFont coverFont(double pointSize, bool bold)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(std::max(pointSize, 0.1));
    font.setBold(bold);
    return font;
}

double FontMeasure::widthMm(const QString& text, double pointSize, bool bold) const
{
    const QFontMetricsF metrics(coverFont(pointSize, bold), m_device);
    const double dpi = m_device ? m_device->logicalDpiX() : 72.0;
    return metrics.horizontalAdvance(text) / dpi * kMmPerInch;
}

bool paintCovers(QPagedPaintDevice& device, const QList<CoverPage>& pages)
{
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    painter.setRenderHint(QPainter::Antialiasing);
    const CoverPlacement placement = placementOn(device);
    for (qsizetype i = 0; i < pages.size(); ++i) {
        if (i > 0 && !device.newPage())
            return false;
        paintCover(painter, placement, pages.at(i));
    }
    return painter.end();
}

bool writeCoverPdf(const QString& path, const QList<CoverRow>& rows,
                   const QList<QStringList>& columns)
{
    // The file is replaced only once the whole PDF is written.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    {
        QPdfWriter writer(&file);
        writer.setResolution(kPdfResolution);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setTitle(QStringLiteral("Tapa"));
        writer.setCreator(QStringLiteral("Nubo"));
        const FontMeasure measure(&writer);
        if (!paintCovers(writer, layoutCover(rows, columns, measure)))
            return false;
    }
    return file.commit();
}

} // namespace nubo::print
