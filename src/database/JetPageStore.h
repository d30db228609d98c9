// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>

namespace nubo::database::jet {

// The pages of a database file held in memory, in blocks of whole pages (the last block may be
// shorter), so that a reader going through a large file can free each block once it is done
// with it. A page of a freed block, and a page past the end, read as empty.
class JetPageStore final
{
public:
    static constexpr qsizetype kPageBytes = 4096;

    explicit JetPageStore(QByteArray file = {});
    // Every block but the last must hold the same whole number of pages.
    explicit JetPageStore(QList<QByteArray> blocks);

    qsizetype size() const { return m_size; }
    quint32 pageCount() const { return quint32(m_size / kPageBytes); }
    // The file's first bytes (its first block).
    QByteArrayView head() const;
    QByteArrayView page(quint32 number) const;

    qsizetype blockCount() const { return m_blocks.size(); }
    qsizetype blockOf(quint32 page) const { return qsizetype(page) / m_blockPages; }
    quint32 firstPageOf(qsizetype block) const { return quint32(block * m_blockPages); }
    void freeBlock(qsizetype block);

private:
    QList<QByteArray> m_blocks;
    qsizetype m_size = 0;
    qsizetype m_blockPages = 1;
};

} // namespace nubo::database::jet
