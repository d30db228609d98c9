// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "print/CoverLayout.h"

#include <QFont>

class QPagedPaintDevice;
class QPaintDevice;
class QPainter;

namespace nubo::print {

// The cover's font family.
QFont coverFont(double pointSize, bool bold);

// Measures texts with the font metrics of a paint device (the printer or PDF writer).
class FontMeasure final : public ITextMeasure
{
public:
    explicit FontMeasure(QPaintDevice* device = nullptr) : m_device(device) {}
    double widthMm(const QString& text, double pointSize, bool bold) const override;

private:
    QPaintDevice* m_device;
};

// Draws laid-out covers, one to a page, each at its real size centred on the page with a
// thin cut frame; a page smaller than a cover scales it down. False when painting fails.
[[nodiscard]] bool paintCovers(QPagedPaintDevice& device, const QList<CoverPage>& pages);

// Lays out and writes the covers as a PDF file on A4 pages.
[[nodiscard]] bool writeCoverPdf(const QString& path, const QList<CoverRow>& rows,
                                 const QList<QStringList>& columns);

} // namespace nubo::print
