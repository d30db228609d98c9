// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

namespace nubo::search {

// A counter of the walk. In the list window it is 16-bit signed: the increment past 32767
// fails, and the walk in progress is abandoned, as with 16-bit counters. The command line
// counts freely.
class SearchCounter final
{
public:
    static constexpr qint64 kSixteenBitLimit = 32767;

    explicit SearchCounter(bool sixteenBit = true) : m_sixteenBit(sixteenBit) {}

    void setSixteenBit(bool sixteenBit) { m_sixteenBit = sixteenBit; }
    void reset() { m_value = 0; }
    // False, and the count unchanged, when a 16-bit counter is full.
    [[nodiscard]] bool increment()
    {
        if (m_sixteenBit && m_value >= kSixteenBitLimit)
            return false;
        ++m_value;
        return true;
    }
    qint64 value() const { return m_value; }

private:
    qint64 m_value = 0;
    bool m_sixteenBit;
};

} // namespace nubo::search
