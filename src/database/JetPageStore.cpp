// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/JetPageStore.h"

#include <algorithm>

namespace nubo::database::jet {

JetPageStore::JetPageStore(QByteArray file) : JetPageStore(QList<QByteArray>{std::move(file)}) {}

JetPageStore::JetPageStore(QList<QByteArray> blocks) : m_blocks(std::move(blocks))
{
    for (const QByteArray& block : std::as_const(m_blocks))
        m_size += block.size();
    if (m_blocks.size() > 1)
        m_blockPages = std::max<qsizetype>(1, m_blocks.first().size() / kPageBytes);
    else
        m_blockPages = std::max<qsizetype>(1, m_size / kPageBytes + 1);
}

QByteArrayView JetPageStore::head() const
{
    return m_blocks.isEmpty() ? QByteArrayView() : QByteArrayView(m_blocks.first());
}

QByteArrayView JetPageStore::page(quint32 number) const
{
    const qsizetype block = blockOf(number);
    if (number >= pageCount() || block >= m_blocks.size())
        return {};
    const QByteArray& bytes = m_blocks.at(block);
    const qsizetype at = (qsizetype(number) - block * m_blockPages) * kPageBytes;
    if (at + kPageBytes > bytes.size())
        return {};
    return QByteArrayView(bytes).sliced(at, kPageBytes);
}

void JetPageStore::freeBlock(qsizetype block)
{
    if (block >= 0 && block < m_blocks.size())
        m_blocks[block] = QByteArray();
}

} // namespace nubo::database::jet
