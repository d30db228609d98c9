// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace nubo::search {

// Raised when a 16-bit counter of the walk passes 32767; it abandons the walk in progress.
struct SearchOverflow
{
};

// A counter of the walk. In the list window it is 16-bit signed: the increment past 32767
// raises SearchOverflow, as 16-bit counters do. The command line counts freely.
class SearchCounter final
{
public:
    static constexpr qint64 kSixteenBitLimit = 32767;

    explicit SearchCounter(bool sixteenBit = true) : m_sixteenBit(sixteenBit) {}

    void setSixteenBit(bool sixteenBit) { m_sixteenBit = sixteenBit; }
    void reset() { m_value = 0; }
    void increment()
    {
        if (m_sixteenBit && m_value >= kSixteenBitLimit)
            throw SearchOverflow{};
        ++m_value;
    }
    qint64 value() const { return m_value; }

private:
    qint64 m_value = 0;
    bool m_sixteenBit;
};

} // namespace nubo::search
