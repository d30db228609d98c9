// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BiffStyles.h"

#include "database/BiffStrings.h"
#include "database/BorderStyles.h"
#include "database/ByteSink.h"

#include <algorithm>
#include <cmath>

namespace nubo::database {
namespace {

constexpr quint16 kFont = 0x0031;
constexpr quint16 kXf = 0x00E0;
constexpr quint16 kStyle = 0x0293;
constexpr quint16 kPalette = 0x0092;
constexpr int kFirstColor = 8;
constexpr quint32 kAutomaticColor = 0x7FFF;
constexpr quint16 kGeneral = 0;       // built-in number format "General"
constexpr quint16 kWholeNumber = 1;   // built-in number format "0": sizes show every digit
constexpr quint16 kPlainCell = 15;    // the default cell format
constexpr quint16 kPlainNumber = 16;  // unstyled: whole numbers
constexpr quint16 kStyledCell = 16;   // styled: texts and blanks
constexpr quint16 kStyledNumber = 17; // styled: whole numbers
constexpr quint8 kOwnNumberFormat = 0x04;

// The spreadsheet's built-in colours for palette indices 8 to 63.
constexpr std::array<quint32, 56> kDefaultPalette = {
    0x000000, 0xFFFFFF, 0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00, 0xFF00FF, 0x00FFFF,
    0x800000, 0x008000, 0x000080, 0x808000, 0x800080, 0x008080, 0xC0C0C0, 0x808080,
    0x9999FF, 0x993366, 0xFFFFCC, 0xCCFFFF, 0x660066, 0xFF8080, 0x0066CC, 0xCCCCFF,
    0x000080, 0xFF00FF, 0xFFFF00, 0x00FFFF, 0x800080, 0x800000, 0x008080, 0x0000FF,
    0x00CCFF, 0xCCFFFF, 0xCCFFCC, 0xFFFF99, 0x99CCFF, 0xFF99CC, 0xCC99FF, 0xFFCC99,
    0x3366FF, 0x33CCCC, 0x99CC00, 0xFFCC00, 0xFF9900, 0xFF6600, 0x666699, 0x969696,
    0x003366, 0x339966, 0x003300, 0x333300, 0x993300, 0x993366, 0x333399, 0x333333,
};

QByteArray fontRecord(const QString& name, double points, bool bold, bool italic, bool underline,
                      quint32 color)
{
    QByteArray data;
    ByteSink sink(data);
    sink.u16(quint32(std::lround(points * 20)));
    sink.u16((italic ? 0x0002 : 0) | (bold ? 0x0001 : 0)); // bold also flagged for old readers
    sink.u16(color);
    sink.u16(bold ? 700 : 400);
    sink.u16(0); // no super- or subscript
    sink.u8(underline ? 1 : 0);
    sink.u8(0); // font family: don't care
    sink.u8(0); // character set: ANSI
    sink.u8(0);
    appendShortBiffString(sink, name);
    return data;
}

// A plain cell format: style formats (parent 0xFFF) or a cell format of the Normal style
// (parent 0) with its number format.
QByteArray plainFormat(quint16 font, bool styleFormat, quint16 numberFormat = kGeneral)
{
    QByteArray data;
    ByteSink sink(data);
    sink.u16(font);
    sink.u16(numberFormat);
    sink.u16(styleFormat ? 0xFFF5 : 0x0001); // locked; style format with no parent
    sink.u8(0x20);                           // bottom aligned
    sink.u8(0);
    sink.u8(0);
    sink.u8(styleFormat && font != 0 ? 0xF4 : (numberFormat != kGeneral ? kOwnNumberFormat : 0));
    sink.u32(0);
    sink.u32(0);
    sink.u16(0x20C0); // automatic pattern colours
    return data;
}

} // namespace

BiffStyles::BiffStyles(std::optional<SheetStyle> style) : m_style(std::move(style))
{
    m_palette = kDefaultPalette;
    if (!m_style)
        return;
    // Colours the palette lacks take the last slots, so the sheet shows them exactly; a slot
    // that holds one of the style's own colours is never given away.
    const std::array<quint32, 3> used = {m_style->fillColor & 0xFFFFFF,
                                         m_style->borderColor & 0xFFFFFF,
                                         m_style->fontColor & 0xFFFFFF};
    auto slot = m_palette.rbegin();
    for (const quint32 color : used) {
        if (std::find(m_palette.begin(), m_palette.end(), color) != m_palette.end())
            continue;
        while (std::find(used.begin(), used.end(), *slot) != used.end())
            ++slot;
        *slot++ = color;
    }
}

// Styled rows are as tall as the spreadsheet makes a row for the style's font (1.275 times
// its size), never lower than the default 12.75 points nor higher than 409.
BiffCellLook BiffStyles::cellLook() const
{
    if (!m_style)
        return {kPlainCell, kPlainNumber, false, 255};
    const auto height = std::lround(m_style->fontSize * 20 * 1.275);
    return {kStyledCell, kStyledNumber, true, quint16(std::clamp<long>(height, 255, 8180))};
}

quint8 BiffStyles::paletteIndex(quint32 rgb) const
{
    const auto found = std::find(m_palette.begin(), m_palette.end(), rgb & 0xFFFFFF);
    return quint8(kFirstColor + (found - m_palette.begin()));
}

void BiffStyles::appendRecords(QByteArray& stream) const
{
    appendFonts(stream);
    appendFormats(stream);
    QByteArray normal;
    ByteSink(normal).u32(0xFF008000); // format 0, built-in style 0 (Normal), level 0xFF
    appendBiffRecord(stream, kStyle, normal);
    if (!m_style)
        return;
    QByteArray palette;
    ByteSink sink(palette);
    sink.u16(quint32(m_palette.size()));
    for (const quint32 rgb : m_palette)
        sink.u32(((rgb >> 16) & 0xFF) | (rgb & 0xFF00) | ((rgb & 0xFF) << 16));
    appendBiffRecord(stream, kPalette, palette);
}

void BiffStyles::appendFonts(QByteArray& stream) const
{
    const QString arial = QStringLiteral("Arial");
    // Font index 4 does not exist in this format: the fifth record is font 5.
    for (int i = 0; i < 4; ++i)
        appendBiffRecord(stream, kFont,
                         fontRecord(arial, 10, false, false, false, kAutomaticColor));
    if (m_style) {
        const SheetStyle& s = *m_style;
        appendBiffRecord(stream, kFont,
                         fontRecord(s.fontName, s.fontSize, s.bold, s.italic, s.underline,
                                    paletteIndex(s.fontColor)));
    }
}

void BiffStyles::appendFormats(QByteArray& stream) const
{
    appendBiffRecord(stream, kXf, plainFormat(0, true));
    for (int i = 1; i < 15; ++i)
        appendBiffRecord(stream, kXf, plainFormat(i <= 2 ? 1 : (i <= 4 ? 2 : 0), true));
    appendBiffRecord(stream, kXf, plainFormat(0, false));
    if (m_style) {
        appendBiffRecord(stream, kXf, styledFormat(kGeneral));
        appendBiffRecord(stream, kXf, styledFormat(kWholeNumber));
    } else {
        appendBiffRecord(stream, kXf, plainFormat(0, false, kWholeNumber));
    }
}

QByteArray BiffStyles::styledFormat(quint16 numberFormat) const
{
    const SheetStyle& s = *m_style;
    const quint32 line = quint32(biffBorderStyle(s.lineStyle, s.weight));
    const quint32 border = paletteIndex(s.borderColor);
    QByteArray data;
    ByteSink sink(data);
    sink.u16(5); // the styled font
    sink.u16(numberFormat);
    sink.u16(0x0001); // locked cell format, parent style 0
    sink.u8(0x20);
    sink.u8(0);
    sink.u8(0);
    // own font, border and pattern, and the number format when it is not the style's
    sink.u8(0x08 | 0x20 | 0x40 | (numberFormat != kGeneral ? kOwnNumberFormat : 0));
    sink.u32(line | (line << 4) | (line << 8) | (line << 12) | (border << 16) | (border << 23));
    sink.u32(border | (border << 7) | (1u << 26)); // solid pattern
    sink.u16(paletteIndex(s.fillColor) | (0x41u << 7));
    return data;
}

} // namespace nubo::database
