// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/JetPages.h"

#include "database/ByteSink.h"
#include "database/Rc4.h"

#include <cmath>

namespace nubo::database::jet {
namespace {

constexpr int kInlineMapBytes = 64;
constexpr int kLeafBitmapAt = 0x1B;
constexpr int kLeafEntriesAt = 0x1E0;
constexpr int kMapPageBits = (int(kPageSize) - 4) * 8;

// Sort weights of the general sort order for letters (either case) and digits.
constexpr quint8 kLetterWeights[26] = {0x4A, 0x4C, 0x4D, 0x4F, 0x51, 0x53, 0x55, 0x57, 0x59,
                                       0x5B, 0x5C, 0x5E, 0x60, 0x62, 0x64, 0x66, 0x68, 0x69,
                                       0x6B, 0x6D, 0x6F, 0x71, 0x73, 0x75, 0x76, 0x78};
constexpr quint8 kDigitWeights[10] = {0x36, 0x38, 0x3A, 0x3C, 0x3E, 0x40, 0x42, 0x44, 0x46, 0x48};

} // namespace

DataPage::DataPage(quint32 owner) : m_owner(owner) {}

int DataPage::freeSpace() const
{
    return m_top - 14 - 2 * int(m_offsets.size());
}

std::optional<quint8> DataPage::add(const QByteArray& row)
{
    if (row.size() + 2 > freeSpace() || m_offsets.size() >= 255)
        return std::nullopt;
    if (m_page.isEmpty())
        m_page = QByteArray(kPageSize, '\0');
    m_top -= int(row.size());
    m_page.replace(m_top, row.size(), row);
    m_offsets.append(quint16(m_top));
    return quint8(m_offsets.size() - 1);
}

QByteArray DataPage::bytes() const
{
    QByteArray page = m_page.isEmpty() ? QByteArray(kPageSize, '\0') : m_page;
    page[0] = 0x01;
    page[1] = 0x01;
    ByteSink::put16(page, 2, quint32(freeSpace()));
    ByteSink::put32(page, 4, m_owner);
    ByteSink::put16(page, 12, quint32(m_offsets.size()));
    for (int i = 0; i < m_offsets.size(); ++i)
        ByteSink::put16(page, 14 + 2 * i, m_offsets.at(i));
    return page;
}

QByteArray indexEntry(const QByteArray& key, RowRef row)
{
    QByteArray entry = key;
    entry.append(char((row.page >> 16) & 0xFF));
    entry.append(char((row.page >> 8) & 0xFF));
    entry.append(char(row.page & 0xFF));
    entry.append(char(row.row));
    return entry;
}

QByteArray longKey(qint32 value)
{
    const quint32 flipped = quint32(value) ^ 0x80000000u;
    QByteArray key(1, '\x7F');
    for (int shift = 24; shift >= 0; shift -= 8)
        key.append(char((flipped >> shift) & 0xFF));
    return key;
}

QByteArray nameKey(const QString& name)
{
    QByteArray key(1, '\x7F');
    for (const QChar c : name) {
        const char16_t u = c.toLower().unicode();
        if (u >= 'a' && u <= 'z')
            key.append(char(kLetterWeights[u - 'a']));
        else if (u >= '0' && u <= '9')
            key.append(char(kDigitWeights[u - '0']));
    }
    key.append('\x01');
    return key;
}

QByteArray indexLeafPage(quint32 owner, const QList<QByteArray>& entries)
{
    QByteArray page(kPageSize, '\0');
    page[0] = 0x04;
    page[1] = 0x01;
    ByteSink::put32(page, 4, owner);
    int at = kLeafEntriesAt;
    for (const QByteArray& entry : entries) {
        page.replace(at, entry.size(), entry);
        at += int(entry.size());
        const int bit = at - kLeafEntriesAt;
        page[kLeafBitmapAt + bit / 8] = char(page[kLeafBitmapAt + bit / 8] | (1 << (bit % 8)));
    }
    ByteSink::put16(page, 2, quint32(kPageSize - at));
    return page;
}

QByteArray usageMapRow(const QList<quint32>& pages, quint32 firstMapPage,
                       QList<QByteArray>* mapPages)
{
    QByteArray row;
    ByteSink sink(row);
    const quint32 first = pages.isEmpty() ? 0 : pages.first();
    const quint32 last = pages.isEmpty() ? 0 : pages.last();
    if (last - first < quint32(kInlineMapBytes * 8)) {
        sink.u8(0);
        sink.u32(first);
        QByteArray bitmap(kInlineMapBytes, '\0');
        for (const quint32 p : pages)
            bitmap[(p - first) / 8] = char(bitmap[(p - first) / 8] | (1 << ((p - first) % 8)));
        sink.bytes(bitmap);
        return row;
    }
    // A reference map: one bitmap page for every kMapPageBits pages of the file.
    const quint32 maps = last / kMapPageBits + 1;
    sink.u8(1);
    for (quint32 m = 0; m < maps; ++m) {
        QByteArray bitmap(kPageSize, '\0');
        bitmap[0] = 0x05;
        bitmap[1] = 0x01;
        bool used = false;
        for (const quint32 p : pages) {
            if (p / kMapPageBits != m)
                continue;
            const quint32 bit = p % kMapPageBits;
            bitmap[4 + bit / 8] = char(bitmap[4 + bit / 8] | (1 << (bit % 8)));
            used = true;
        }
        sink.u32(used ? firstMapPage + quint32(mapPages->size()) : 0);
        if (used)
            mapPages->append(bitmap);
    }
    return row;
}

QByteArray headerPage(double created)
{
    QByteArray page(kPageSize, '\0');
    ByteSink sink(page);
    page.clear();
    sink.u32(0x00000100);
    sink.bytes(QByteArrayLiteral("Standard Jet DB"));
    sink.u8(0);
    sink.u32(1); // version 4
    // The next 128 bytes are stored encrypted with a fixed key.
    QByteArray secret;
    ByteSink plain(secret);
    for (quint32 v : {0x00000100u, 0x00000101u, 2u, 3u, 4u, 5u})
        plain.u32(v);
    plain.zeros(0x3C - 0x30);
    plain.u16(1252); // code page
    plain.u32(0);    // no database key: pages are stored in the clear
    // An empty password, masked with the creation day as the engine does.
    const auto day = quint32(qint64(std::floor(created)));
    for (int i = 0; i < 10; ++i)
        plain.u32(day);
    plain.u32(0);
    plain.u16(0x0409); // general sort order
    plain.u16(0);
    plain.f64(created);
    plain.zeros(128 - secret.size());
    sink.bytes(rc4(QByteArray::fromHex("c7da396b"), secret));
    sink.u32(0x0654);
    sink.bytes(QByteArrayLiteral("4.0"));
    page.resize(kPageSize, '\0');
    for (qsizetype at = 0xE00; at < kPageSize; at += 2)
        page[at + 1] = 0x01;
    page[0xE00] = 0x01;
    return page;
}

QByteArray allocationPage(quint32 pageCount)
{
    DataPage page(1);
    for (int map = 0; map < 2; ++map) {
        QByteArray row;
        ByteSink sink(row);
        sink.u8(0);
        sink.u32(0);
        QByteArray bitmap(kInlineMapBytes, '\0');
        // The first map marks the pages not yet allocated within its window.
        for (quint32 p = pageCount; map == 0 && p < quint32(kInlineMapBytes * 8); ++p)
            bitmap[p / 8] = char(bitmap[p / 8] | (1 << (p % 8)));
        sink.bytes(bitmap);
        page.add(row);
    }
    return page.bytes();
}

} // namespace nubo::database::jet
