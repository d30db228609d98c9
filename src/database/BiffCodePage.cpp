// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/BiffCodePage.h"

#include "platform/Windows1252.h"

namespace nubo::database {
namespace {

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
    return platform::decodeWindows1252(bytes);
}

} // namespace nubo::database
