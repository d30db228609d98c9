// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "database/BiffSheet.h"
#include "database/SheetStyle.h"

#include <QByteArray>

#include <optional>

namespace nubo::database {

// The workbook's fonts, cell formats, palette and the Normal style, for plain or styled cells.
class BiffStyles final
{
public:
    explicit BiffStyles(std::optional<SheetStyle> style);

    void appendRecords(QByteArray& stream) const;
    BiffCellLook cellLook() const;

private:
    void appendFonts(QByteArray& stream) const;
    void appendFormats(QByteArray& stream) const;
    QByteArray styledFormat(quint16 numberFormat) const;
    quint8 paletteIndex(quint32 rgb) const;

    std::optional<SheetStyle> m_style;
    std::array<quint32, 56> m_palette{};
};

} // namespace nubo::database
