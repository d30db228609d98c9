#include "database/BiffCodePage.h"

#include <array>

namespace nubo::database {
namespace {

// Windows-1252 from 0x80 to 0x9F; its five unassigned bytes map to the C1 controls, as
// Windows itself maps them.
constexpr std::array<char16_t, 32> kWindows1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QByteArray encodingName(quint16 codePage)
{
    if (codePage >= 1250 && codePage <= 1258)
        return "windows-" + QByteArray::number(codePage);
    switch (codePage) {
    case 437:
    case 850:
    case 852:
    case 866:
        return "IBM" + QByteArray::number(codePage);
    case 874:
        return "windows-874";
    case 932:
        return "Shift_JIS";
    case 936:
        return "GBK";
    case 949:
        return "windows-949";
    case 950:
        return "Big5";
    case 10000:
    case 0x8000: // Excel's own number for Mac Roman
        return "macintosh";
    default:
        return {};
    }
}

} // namespace

BiffCodePage::BiffCodePage(quint16 codePage) : m_utf16(codePage == 1200)
{
    if (codePage == 1252 || m_utf16)
        return;
    const QByteArray name = encodingName(codePage);
    if (name.isEmpty())
        return;
    QStringDecoder decoder(name.constData());
    if (decoder.isValid())
        m_decoder.emplace(std::move(decoder));
}

QString BiffCodePage::decode(QByteArrayView bytes) const
{
    if (m_utf16) {
        QString text;
        for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
            text.append(QChar(char16_t(quint8(bytes[i]) | (quint8(bytes[i + 1]) << 8))));
        return text;
    }
    if (m_decoder) {
        m_decoder->resetState();
        return m_decoder->decode(bytes);
    }
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto byte = quint8(bytes[i]);
        text[i] = QChar(byte >= 0x80 && byte < 0xA0 ? kWindows1252High[byte - 0x80] : byte);
    }
    return text;
}

} // namespace nubo::database
